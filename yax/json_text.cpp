#include "yax/json_text.h"

#include <cstddef>
#include <cstdio>

namespace yax {

namespace {

bool Between(char byte, unsigned low, unsigned high) {
  const unsigned value = static_cast<unsigned char>(byte);
  return low <= value && value <= high;
}

/// Bytes of the character at the front of `rest`; 0 when it is no character.
std::size_t LengthOfCharacter(std::string_view rest) {
  const unsigned lead = static_cast<unsigned char>(rest.front());
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || rest.size() < length) return 0;
  // Overlong forms, surrogates and numbers beyond the last one are told from the second byte.
  const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (!Between(rest[1], low, high)) return 0;
  for (std::size_t i = 2; i < length; ++i)
    if (!Between(rest[i], 0x80, 0xBF)) return 0;
  return length;
}

}  // namespace

std::string Utf8Of(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t length = LengthOfCharacter(bytes);
    if (length == 0) {
      text += "\xEF\xBF\xBD";
      bytes.remove_prefix(1);
    } else {
      text += bytes.substr(0, length);
      bytes.remove_prefix(length);
    }
  }
  return text;
}

std::string JsonString(std::string_view bytes) {
  std::string text = "\"";
  for (const char c : Utf8Of(bytes)) {
    if (c == '"' || c == '\\') {
      (text += '\\') += c;
    } else if (Between(c, 0x00, 0x1F)) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      text += escape;
    } else {
      text += c;
    }
  }
  return text += '"';
}

}  // namespace yax
