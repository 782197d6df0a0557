#include <csignal>

#include "yax/program.h"

int main(int argc, char** argv) {
  // A reader that goes away, and a file that may not grow any more, are failed writes like any other.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  return static_cast<int>(yax::RunProgram({argv + 1, argv + argc}));
}
