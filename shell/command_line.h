/// The command line as one text, the way the start-up routine takes it.
#pragma once

#include <string>
#include <vector>

namespace shell {

/// The arguments joined with single spaces, in double quotes; empty when there are none. A shell has taken
/// the quotes away that the start-up routine expects round a path, so they are put back here.
std::string CommandLineText(const std::vector<std::string>& arguments);

}  // namespace shell
