/// The least that any reader of a package must do, as the yardstick for ours.
#pragma once

#include <string>

namespace bench {

/// Takes the package file and its side file into memory, goes over their lines and fields and converts
/// every field that holds a number; stores nothing.
/// Returns the sum of the numbers and of the net types' lengths, so that no step can be left out
double BarePass(const std::string& path);

}  // namespace bench
