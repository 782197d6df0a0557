/// The commands of the program: one routine and one source, NAME_command.cpp, for each.
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
  const CLI::App* Parser;       ///< after parsing, shows whether this command was given
  std::function<Status()> Run;  ///< runs the command with the parsed options
};

// Each adds its subcommand to the program's parser and returns the routine that runs it. That routine owns
// the options, so it must outlive the parser.
Command AddRender(CLI::App& program);
Command AddCheck(CLI::App& program);
Command AddWires(CLI::App& program);
Command AddClearance(CLI::App& program);
Command AddEstimate(CLI::App& program);
Command AddExport(CLI::App& program);
Command AddImport(CLI::App& program);
Command AddDiagram(CLI::App& program);
Command AddCompletion(CLI::App& program);

/// Every command, in the order in which the help lists them; program.cpp has the list.
std::vector<Command> AddCommands(CLI::App& program);

}  // namespace yax
