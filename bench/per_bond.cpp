/// What reading and building cost per bond, beside the least that each must do.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/bare_pass.h"
#include "bench/drawing_place.h"
#include "bench/emission.h"
#include "bench/package_scene.h"
#include "model/reader/read_package.h"
#include "render/gl/gl_pen.h"
#include "render/gl/scene_list.h"

namespace {

std::string PackageOf(const benchmark::State& state) {
  return YAX_BENCH_PACKAGES "/scale-" + std::to_string(state.range(0)) + ".yax";
}

/// Reports seconds per bond; the inverse rate prints as time.
void PerBond(benchmark::State& state) {
  state.counters["per_bond"] = benchmark::Counter(
      double(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// Package, side file and tiers: all that a load asks of the reader.
void Read(benchmark::State& state) {
  model::PackageScalars before;
  before.PackagePath = PackageOf(state);
  for (auto pass : state) {
    auto package = model::reader::ReadPackage(before);
    if (!package || package->WireNames.Count() != static_cast<std::size_t>(state.range(0))) {
      state.SkipWithError("the package was not read");
      break;
    }
    benchmark::DoNotOptimize(package);
  }
  PerBond(state);
}

void Bare(benchmark::State& state) {
  const std::string path = PackageOf(state);
  for (auto pass : state) benchmark::DoNotOptimize(bench::BarePass(path));
  PerBond(state);
}

/// The scene list, compiled anew.
void Build(benchmark::State& state) {
  const auto place = bench::OpenDrawingPlace();
  bench::PackageScene opened(PackageOf(state));
  render::gl::GlPen pen;
  render::Scene scene(opened.Inputs(), pen);
  render::gl::SceneList list;
  for (auto pass : state) list.BuildCube(scene);
  PerBond(state);
}

/// The same calls without the computing.
void BareBuild(benchmark::State& state) {
  const auto place = bench::OpenDrawingPlace();
  bench::PackageScene opened(PackageOf(state));
  bench::Emission emission(opened.Inputs());
  for (auto pass : state) emission.BuildList();
  PerBond(state);
}

BENCHMARK(Bare)->Arg(1000)->Arg(8000)->Arg(32000);
BENCHMARK(Read)->Arg(1000)->Arg(8000)->Arg(32000);

}  // namespace

BENCHMARK(BareBuild)->Arg(1000)->Arg(8000)->Arg(32000);
BENCHMARK(Build)->Arg(1000)->Arg(8000)->Arg(32000);

BENCHMARK_MAIN();
