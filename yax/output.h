/// Where a command's output goes.
#pragma once

#include <string>
#include <string_view>

namespace yax {

/// True for "-", devices and named pipes: they have no whole to keep.
bool IsStream(const std::string& output);

/// Writes a file whole or not at all; "-" is standard output, and devices and named pipes are written
/// through. Faults  Unusable when that fails
void WriteOutput(const std::string& output, std::string_view bytes);

}  // namespace yax
