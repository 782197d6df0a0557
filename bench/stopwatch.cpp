#include "bench/stopwatch.h"

#include <cstdio>
#include <ctime>
#include <fstream>

namespace bench {

namespace {

double Clock(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

}  // namespace

double Seconds() { return Clock(CLOCK_MONOTONIC); }
double ThreadSeconds() { return Clock(CLOCK_THREAD_CPUTIME_ID); }

long Memory(const char* field) {
  std::ifstream status("/proc/self/status");
  const std::string wanted = std::string(field) + ":";
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(wanted)) return std::stol(line.substr(wanted.size()));
  }
  return 0;
}

void Report(const std::string& name, double value) {
  std::printf("%s %.9g\n", name.c_str(), value);
  std::fflush(stdout);
}

}  // namespace bench
