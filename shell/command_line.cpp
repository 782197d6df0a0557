#include "shell/command_line.h"

namespace shell {

std::string CommandLineText(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return {};
  std::string text = "\"";
  for (const std::string& argument : arguments) {
    if (&argument != &arguments.front()) text += ' ';
    text += argument;
  }
  return text + '"';
}

}  // namespace shell
