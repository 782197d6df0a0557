/// The commands of the program: one routine each, in a file of its own.
#pragma once

#include <functional>
#include <vector>

#include "yax/messages.h"

namespace CLI {
class App;
}

namespace yax {

/// One command on the command line.
struct Command {
  const CLI::App* Parser;       ///< tells after parsing whether this command was asked for
  std::function<Status()> Run;  ///< does it, with the options parsed
};

// Each adds its part of the command line to the program's parser and returns how to run it. The options live
// in the routine that it returns, so the parser must not be used any longer than that.
Command AddRender(CLI::App& program);
Command AddCheck(CLI::App& program);
Command AddWires(CLI::App& program);
Command AddClearance(CLI::App& program);
Command AddEstimate(CLI::App& program);
Command AddExport(CLI::App& program);
Command AddImport(CLI::App& program);
Command AddDiagram(CLI::App& program);
Command AddCompletion(CLI::App& program);

/// Every command, in the order in which the help lists them.
std::vector<Command> AddCommands(CLI::App& program);

}  // namespace yax
