/// The least work that any reader of a package must do: the yardstick for the viewer's reader.
#pragma once

#include <string>

namespace bench {

/// Reads   the package file and its side file into memory, splits lines and fields and converts every field
///         that holds a number; stores nothing.
/// Returns the sum of the numbers and of the net types' lengths, so that the compiler cannot drop a step
double BarePass(const std::string& path);

}  // namespace bench
