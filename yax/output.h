/// Where a command's output goes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/files.h"

namespace yax {

/// True for "-", devices and named pipes: they have no whole to keep.
bool IsStream(const std::string& output);

/// Writes a file whole or not at all; "-" is standard output, and devices and named pipes are written
/// through. Faults  Unusable when that fails
void WriteOutput(const std::string& output, std::string_view bytes);

/// Writes files that belong together, all or none. None of them may be a stream.
/// Faults  Unusable with the file that cannot be written
void WriteOutputs(const std::vector<model::FileToWrite>& files);

}  // namespace yax
