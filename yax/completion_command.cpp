#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "yax/command_list.h"
#include "yax/completion.h"
#include "yax/output.h"

namespace yax {

namespace {

std::string CompletionFor(const std::string& shell, const CLI::App& program) {
  if (shell == "bash") return BashCompletion(program);
  return shell == "zsh" ? ZshCompletion(program) : FishCompletion(program);
}

}  // namespace

Command AddCompletion(CLI::App& program) {
  CLI::App* const command = program.add_subcommand("completion", "Write a shell's completion script");
  const auto shell = std::make_shared<std::string>();
  command->add_option("SHELL", *shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember(std::vector<std::string>{"bash", "zsh", "fish"}));
  const auto run = [shell, &program] {
    WriteOutput("-", CompletionFor(*shell, program));
    return Status::Done;
  };
  return {command, run};
}

}  // namespace yax
