/// Reading what lies on the disk.
#pragma once

#include <string>

namespace model {

/// True for a regular file, or a link to one; false for anything else and on any error.
bool FileExists(const std::string& path);

/// The whole file, byte for byte.
/// Faults  FileFault when it is there but cannot be opened or read, is not a regular file, or is larger
///         than 256 megabytes
std::string ReadWholeFile(const std::string& path);

}  // namespace model
