// Measures the reader, and the bare pass that any reader must make:
// bench_read PACKAGE ROUNDS prints times, bench_read PACKAGE ours|bare the memory of one of them.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/bare_pass.h"
#include "bench/package_scene.h"
#include "bench/stopwatch.h"

int main(int argc, char** argv) {
  if (argc != 3) return std::fputs("usage: bench_read PACKAGE ROUNDS|ours|bare\n", stderr), 2;
  const std::string path = argv[1];
  const std::string mode = argv[2];
  volatile double sum = 0.0;
  const auto bare = [&] { sum = bench::BarePass(path); };
  const auto ours = [&] { sum = double(bench::PackageScene::Read(path).Bonds.Count()); };
  if (mode == "ours" || mode == "bare") {
    mode == "ours" ? ours() : bare();
    bench::Report("memory", double(bench::Memory("VmHWM")));
    return 0;
  }
  bench::InTurn(std::atoi(argv[2]), "ours", ours, "bare", bare);
}
