#include <csignal>

#include "yax/program.h"

int main(int argc, char** argv) {
  // A reader that goes away is a failed write like any other, with its message and status.
  std::signal(SIGPIPE, SIG_IGN);
  return static_cast<int>(yax::RunProgram({argv + 1, argv + argc}));
}
