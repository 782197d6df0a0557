#include "formats/json.h"

#include <nlohmann/json.hpp>

namespace formats {

std::string JsonText(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string JsonPiece(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Utf8Of(std::string_view bytes) {
  // The library's writer replaces bad UTF-8; its reader then removes the quotes and escapes.
  return Json::parse(JsonText(bytes)).get<std::string>();
}

}  // namespace formats
