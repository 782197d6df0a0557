// Measures the build of the scene's list and the bare emission of the same calls:
// bench_build PACKAGE ROUNDS prints times, bench_build PACKAGE ours|bare the memory of one of them.
// bench_build_silent is the same program, linked with GL routines that do nothing.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "bench/drawing_place.h"
#include "bench/emission.h"
#include "bench/package_scene.h"
#include "bench/stopwatch.h"
#include "render/gl/gl_pen.h"
#include "render/gl/scene_list.h"

int main(int argc, char** argv) {
  if (argc != 3) return std::fputs("usage: bench_build PACKAGE ROUNDS|ours|bare\n", stderr), 2;
  const std::unique_ptr<render::gl::GlSurface> place = bench::OpenDrawingPlace();
  bench::PackageScene opened(argv[1]);
  bench::Emission emission(opened.Inputs());
  render::gl::GlPen pen;
  render::Scene scene(opened.Inputs(), pen);
  render::gl::SceneList list;
  const auto ours = [&] { list.BuildCube(scene); };
  const auto bare = [&] { emission.BuildList(); };

  const std::string mode = argv[2];
  if (mode == "ours" || mode == "bare") {
    const long before = bench::Memory("VmRSS");
    mode == "ours" ? ours() : bare();
    bench::Report("memory", double(bench::Memory("VmRSS") - before));
    return 0;
  }
  bench::InTurn(std::atoi(argv[2]), "ours", ours, "bare", bare);
  bench::Report("bonds", double(opened.package.Bonds.Count()));
}
