// Measures time and peak memory of one command: bench_command PROGRAM ARGUMENTS...
// A separate small program does this, because a process inherits the peak of its parent.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/stopwatch.h"

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const double start = bench::Seconds();
  const pid_t child = fork();
  if (child == 0) {
    const int nothing = open("/dev/null", O_WRONLY);
    dup2(nothing, STDOUT_FILENO);
    execv(argv[1], argv + 1);
    _exit(127);
  }
  int status = 0;
  rusage use{};
  if (child < 0 || wait4(child, &status, 0, &use) != child) return 1;
  bench::Report("time", bench::Seconds() - start);
  bench::Report("memory", double(use.ru_maxrss));
  // Status 1 means that a check has findings.
  return WIFEXITED(status) && WEXITSTATUS(status) <= 1 ? 0 : 1;
}
