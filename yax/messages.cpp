#include "yax/messages.h"

#include <cstdio>

namespace yax {

std::string MessageText(const Place& place, std::string_view what, std::string_view advice) {
  std::string text = place.File.empty() ? "''" : place.File;
  if (place.Line != 0) (text += ':') += std::to_string(place.Line);
  (text += ": ") += what;
  if (!advice.empty()) (text += "; ") += advice;
  return text;
}

void Complain(const Place& place, std::string_view what, std::string_view advice) {
  std::fprintf(stderr, "%s\n", MessageText(place, what, advice).c_str());
}

Place CommandLine() { return {.File = "yax"}; }

Unusable::Unusable(const Place& place, std::string_view what, std::string_view advice)
    : text_(MessageText(place, what, advice)) {}

}  // namespace yax
