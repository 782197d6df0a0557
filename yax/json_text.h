/// Texts of package files inside JSON.
#pragma once

#include <string>
#include <string_view>

namespace yax {

/// The text in UTF-8: each byte that does not fit becomes the replacement character. Package files may hold
/// any bytes.
std::string Utf8Of(std::string_view bytes);

/// The text as a JSON string, quotes included.
std::string JsonString(std::string_view bytes);

}  // namespace yax
