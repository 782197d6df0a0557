#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "yax/command_list.h"
#include "yax/completion.h"
#include "yax/output.h"

namespace yax {

Command AddCompletion(CLI::App& program) {
  CLI::App* const command = program.add_subcommand("completion", "Write a shell's completion script");
  const auto shell = std::make_shared<std::string>();
  command->add_option("SHELL", *shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember(std::vector<std::string>{"bash", "zsh", "fish"}));
  const auto run = [shell, &program] {
    WriteOutput("-", *shell == "bash"  ? BashCompletion(program)
                     : *shell == "zsh" ? ZshCompletion(program)
                                       : FishCompletion(program));
    return Status::Done;
  };
  return {command, run};
}

}  // namespace yax
