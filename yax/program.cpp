#include "yax/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <new>
#include <sstream>

#include "model/text.h"
#include "model/version.h"
#include "sheet/drawing.h"
#include "yax/command_list.h"
#include "yax/help_format.h"
#include "yax/output.h"

namespace yax {

namespace {

void AddHelpAndVersion(CLI::App& level) {
  level.set_help_flag("-h,--help", "Show this help and exit");
  level.set_version_flag("--version", std::string("yax ") + model::kVersionText, "Show the version and exit");
}

/// The mistake in the arguments; replaces CLI11's messages that are hard to understand.
std::string MistakeIn(const std::vector<std::string>& arguments, const CLI::App& program,
                      const CLI::ParseError& stop) {
  const auto commands = program.get_subcommands();
  if (arguments.empty()) return "a command is missing";
  if (commands.empty()) return "unknown command " + model::Quoted(arguments.front());
  for (const CLI::Option* option : commands.front()->get_options())
    if (std::string mistake = MistakeInValues(*option, stop); !mistake.empty()) return mistake;
  std::string what = stop.what();
  std::replace(what.begin(), what.end(), '\n', ' ');
  return what;
}

/// Handles a stop of the parser: prints help or the version, or reports a mistake in the arguments.
Status AnswerOrRefuse(const std::vector<std::string>& arguments, const CLI::App& program,
                      const CLI::ParseError& stop) {
  std::ostringstream answer;
  std::ostringstream ignored;
  if (program.exit(stop, answer, ignored) == 0) {
    WriteOutput("-", answer.str());
    return Status::Done;
  }
  const auto commands = program.get_subcommands();
  const std::string help =
      commands.empty() ? "yax --help" : "yax " + commands.front()->get_name() + " --help";
  throw Unusable(CommandLine(), MistakeIn(arguments, program, stop), "see " + help);
}

Status ParseAndRun(const std::vector<std::string>& arguments) {
  CLI::App program("Integrated-circuit packages on the command line: the viewer's companion", "yax");
  program.formatter(std::make_shared<HelpFormat>());
  const std::string endings =
      "Exit status:\n"
      "  0                             Done\n"
      "  1                             Done, and there are findings\n"
      "  2                             Unusable input or arguments";
  program.footer(endings);  // inherited by the commands
  program.require_subcommand(1, 1);
  AddHelpAndVersion(program);
  const std::vector<Command> commands = AddCommands(program);
  for (CLI::App* const command : program.get_subcommands({})) {
    command->group("Commands");
    AddHelpAndVersion(*command);
  }
  program.footer(endings + "\n\nyax COMMAND --help lists the options of a command.");
  try {
    // CLI11 takes the arguments from the back and removes them.
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& stop) {
    return AnswerOrRefuse(arguments, program, stop);
  }
  const auto asked = std::find_if(commands.begin(), commands.end(),
                                  [](const Command& command) { return command.Parser->parsed(); });
  return asked->Run();
}

}  // namespace

std::vector<Command> AddCommands(CLI::App& program) {
  return {AddRender(program),    AddCheck(program),    AddWires(program),
          AddClearance(program), AddEstimate(program), AddExport(program),
          AddImport(program),    AddDiagram(program),  AddCompletion(program)};
}

Status RunProgram(const std::vector<std::string>& arguments) {
  try {
    return ParseAndRun(arguments);
  } catch (const Unusable& unusable) {
    std::fprintf(stderr, "%s\n", unusable.what());
  } catch (const std::bad_alloc&) {
    Complain(CommandLine(), "out of memory", "choose fewer wires or a smaller picture");
  } catch (const sheet::TypesettingFault& fault) {
    Complain(CommandLine(), fault.what(), "install yax again");
  }
  return Status::Unusable;
}

}  // namespace yax
