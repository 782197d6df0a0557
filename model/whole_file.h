/// Writing a file whole or not at all.
#pragma once

#include <string>
#include <string_view>

namespace model {

/// Whether the new content has to outlive a loss of power a moment later. What can be made again has not, and
/// waiting for the disk may take longer than all the rest.
enum class Content { Kept, MadeAgain };

/// Replaces (or creates) the file at `path` with `bytes`. Until the new content is all there (and, when it is
/// to be kept, safely on the disk) the old file stays as it was; an existing file keeps its permissions, and
/// a link keeps pointing.
/// Faults  FileFault with the system's reason; nothing is left behind then
void WriteWholeFile(const std::string& path, std::string_view bytes, Content content = Content::Kept);

}  // namespace model
