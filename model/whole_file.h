/// Writing a file whole or not at all.
#pragma once

#include <string>
#include <string_view>

namespace model {

/// Replaces (or creates) the file at `path` with `bytes`. Until the new content is safely on the disk
/// the old file stays as it was; an existing file keeps its permissions, and a link keeps pointing.
/// Faults  FileFault with the system's reason; nothing is left behind then
void WriteWholeFile(const std::string& path, std::string_view bytes);

}  // namespace model
