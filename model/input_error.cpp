#include "model/input_error.h"

namespace model {

std::string MessageText(const FilePlace& place, std::string_view what, std::string_view advice) {
  std::string text = place.File.empty() ? "''" : place.File;
  if (place.Line != 0) text += ":" + std::to_string(place.Line);
  text.append(": ").append(what);
  if (!advice.empty()) text.append("; ").append(advice);
  return text;
}

}  // namespace model
