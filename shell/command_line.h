/// The arguments of the program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace shell {

/// The command line as one text for the start-up routine: the arguments joined with single spaces, in double
/// quotes; empty when there are none. The start-up routine expects a path in quotes, but a shell has already
/// removed them.
std::string CommandLineText(const std::vector<std::string>& arguments);

/// The answer to --help or --version, which needs no display; empty when neither is given.
std::string AnswerAtOnce(const std::vector<std::string>& arguments);

/// The value of one of Qt's options ("-display :1"), as a pointer into `arguments`; null when not given.
const char* QtOption(const std::vector<std::string>& arguments, std::string_view name);

}  // namespace shell
