#include <csignal>

#include "yax/program.h"

int main(int argc, char** argv) {
  // A closed pipe and a file at the size limit should be failed writes, not signals that kill the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  return static_cast<int>(yax::RunProgram({argv + 1, argv + argc}));
}
