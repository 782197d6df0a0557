// Measures resident memory over many rebuilds: bench_rebuild PACKAGE keep|delete. "keep" empties the previous
// list, as the viewer does; "delete" deletes it.
#include <GL/gl.h>

#include <cstdio>
#include <string>

#include "bench/drawing_place.h"
#include "bench/package_scene.h"
#include "bench/stopwatch.h"
#include "render/gl/gl_pen.h"
#include "render/gl/scene_list.h"

int main(int argc, char** argv) {
  if (argc != 3) return std::fputs("usage: bench_rebuild PACKAGE keep|delete\n", stderr), 2;
  const bool deletes = std::string(argv[2]) == "delete";
  const std::unique_ptr<render::gl::GlSurface> place = bench::OpenDrawingPlace();
  bench::PackageScene opened(argv[1]);
  render::gl::GlPen pen;
  render::Scene scene(opened.Inputs(), pen);
  render::gl::SceneList list;
  for (int build = 1; build <= 1000; ++build) {
    if (deletes && list.Number() != 0) {
      glDeleteLists(static_cast<GLuint>(list.Number()), 1);
      list.Forget();
    }
    list.BuildCube(scene);
    glFinish();
    if (build == 100) bench::Report("at100", double(bench::Memory("VmRSS")));
  }
  bench::Report("at1000", double(bench::Memory("VmRSS")));
}
