/// JSON as the commands write it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace formats {

/// Keeps keys in insertion order.
using Json = nlohmann::ordered_json;

/// The whole file. Names may contain any bytes; each that is not UTF-8 becomes the replacement character.
std::string JsonText(const Json& json);

/// A value on one line, for a file that is written piece by piece.
std::string JsonPiece(const Json& value);

/// The text in UTF-8, with the same replacement.
std::string Utf8Of(std::string_view bytes);

}  // namespace formats
