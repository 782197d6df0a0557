#include "shell/command_line.h"

#include <cstddef>

#include "model/version.h"

namespace shell {

namespace {

constexpr char kUsage[] =
    "Usage: yaxview [FILE.yax]\n"
    "Shows an integrated-circuit package in three dimensions.\n"
    "\n"
    "Without FILE the sample beside the program opens.\n"
    "\n"
    "  --help      show this text and exit\n"
    "  --version   show the program's version and exit\n";

}  // namespace

std::string CommandLineText(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return {};
  std::string text = "\"";
  for (const std::string& argument : arguments) {
    if (&argument != &arguments.front()) text += ' ';
    text += argument;
  }
  return text + '"';
}

std::string AnswerAtOnce(const std::vector<std::string>& arguments) {
  for (const std::string& argument : arguments) {
    if (argument == "--help") return kUsage;
    if (argument == "--version") return std::string("yaxview ") + model::kVersionText + "\n";
  }
  return {};
}

const char* QtOption(const std::vector<std::string>& arguments, std::string_view name) {
  for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (argument.starts_with('-') && argument.substr(argument.starts_with("--") ? 2 : 1) == name)
      return arguments[i + 1].c_str();
  }
  return nullptr;
}

}  // namespace shell
