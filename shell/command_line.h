/// The arguments of the program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace shell {

/// The command line as one text, the way the start-up routine takes it: the arguments joined with single
/// spaces, in double quotes; empty when there are none. The start-up routine expects the quotes around a
/// path, which a shell has removed.
std::string CommandLineText(const std::vector<std::string>& arguments);

/// The answer to --help or --version, which needs no display; empty when neither is asked.
std::string AnswerAtOnce(const std::vector<std::string>& arguments);

/// The value of an option that Qt takes ("-display :1"), a text of `arguments`; or null.
const char* QtOption(const std::vector<std::string>& arguments, std::string_view name);

}  // namespace shell
