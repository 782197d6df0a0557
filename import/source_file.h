/// The bytes of a source, unpacked where it is a gzip file, and the numbers in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace importer {

/// The whole source. What begins like a gzip file is unpacked.
/// Faults  InputError when it cannot be read, is damaged, or holds more than 256 megabytes
std::string ReadSource(const std::string& path);

/// Unpacks a gzip file of one or more members.
/// Faults  InputError, with `path` in its message, as above
std::string Unzipped(std::string_view bytes, const std::string& path);

/// The whole of `text` as a number; nothing when it is not a number, or is beyond 1e12, which no length in
/// any unit reaches.
std::optional<double> NumberIn(std::string_view text);

}  // namespace importer
