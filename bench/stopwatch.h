/// Clocks, memory counts and result lines of the measuring programs.
#pragma once

#include <string>
#include <utility>

namespace bench {

/// Seconds of wall time.
double Seconds();
/// Seconds of processor time of this thread.
double ThreadSeconds();

/// A line of /proc/self/status: "VmRSS" is resident memory now, "VmHWM" its peak so far.
/// Returns kilobytes
long Memory(const char* field);

/// Prints "name value" and flushes.
void Report(const std::string& name, double value);

template <class Work>
double ThreadSecondsOf(Work&& work) {
  const double start = ThreadSeconds();
  work();
  return ThreadSeconds() - start;
}

/// Times both routines in turn for `rounds` rounds and repeats each for a few milliseconds per round; reports
/// seconds per run.
template <class Ours, class Bare>
void InTurn(int rounds, const char* oursName, Ours&& ours, const char* bareName, Bare&& bare) {
  constexpr double kEnough = 4e-3;
  ours();
  const double once = ThreadSecondsOf(bare);
  const int repeats = once > kEnough ? 1 : static_cast<int>(kEnough / once) + 1;
  const auto report = [repeats](const char* name, auto&& work) {
    const double taken = ThreadSecondsOf([&] {
      for (int i = 0; i < repeats; ++i) work();
    });
    Report(name, taken / repeats);
  };
  for (int round = 0; round < rounds; ++round) {
    report(oursName, ours);
    report(bareName, bare);
  }
}

}  // namespace bench
