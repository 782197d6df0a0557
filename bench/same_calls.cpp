// Checks the yardstick: bench_same_calls PACKAGE... fails unless the bare emission and the scene make the
// same calls.
#include <cstdio>
#include <vector>

#include "bench/emission.h"
#include "bench/package_scene.h"
#include "gl_recorder/gl_recorder.h"
#include "render/gl/gl_pen.h"
#include "render/gl/scene_list.h"

namespace {

bool SameCalls(const char* path) {
  bench::PackageScene opened(path);
  bench::Emission emission(opened.Inputs());
  gl_recorder::Recorder recorder;
  emission.BuildList();
  const std::vector<gl_recorder::Call> bare = recorder.Log();
  recorder.NewContext();
  recorder.ClearLog();
  render::gl::GlPen pen;
  render::Scene scene(opened.Inputs(), pen);
  render::gl::SceneList().BuildCube(scene);
  const std::vector<gl_recorder::Call>& ours = recorder.Log();
  bool same = ours.size() == bare.size() && ours.size() > 100;
  for (std::size_t i = 0; same && i < ours.size(); ++i) same = ours[i].Text == bare[i].Text;
  if (!same) std::fprintf(stderr, "the bare emission of %s makes other calls than the scene\n", path);
  return same;
}

}  // namespace

int main(int argc, char** argv) {
  bool same = argc > 1;
  for (int i = 1; i < argc; ++i) same = SameCalls(argv[i]) && same;
  return same ? 0 : 1;
}
