/// JSON as the commands write it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace formats {

/// Keeps keys in insertion order.
using Json = nlohmann::ordered_json;

/// The whole file. Names may contain any bytes; each that is not UTF-8 becomes the replacement character.
std::string JsonText(const Json& json);

/// A value on one line, for a file that is written piece by piece.
std::string JsonPiece(const Json& value);

}  // namespace formats
