/// Text files that options name.
#pragma once

#include <string>

namespace yax {

/// The whole file or pipe, without the byte order mark that some editors write.
/// Faults  Unusable when there is no such file or it cannot be read
std::string TextOf(const std::string& file);

/// The first 12 digits of the file's SHA-256.
/// Faults  Unusable when it cannot be read
std::string DigestOf(const std::string& file);

}  // namespace yax
