/// The program `yax`: works with packages on the command line, without a display.
#pragma once

#include <string>
#include <vector>

#include "yax/messages.h"

namespace yax {

/// Parses the arguments and runs the command that they name. Answers go to standard output, messages to
/// standard error.
Status RunProgram(const std::vector<std::string>& arguments);

}  // namespace yax
