/// Writes a command's output.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/files.h"

namespace yax {

/// True for "-", devices and named pipes, which cannot be replaced atomically.
bool IsStream(const std::string& output);

/// Writes a file whole or not at all; "-" is standard output. Writes directly to devices and named pipes.
/// Faults  Unusable when the write fails
void WriteOutput(const std::string& output, std::string_view bytes);

/// Writes several files, all or none. None may be a stream.
/// Faults  Unusable with the file that cannot be written
void WriteOutputs(const std::vector<model::FileToWrite>& files);

}  // namespace yax
