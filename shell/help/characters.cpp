#include "shell/help/characters.h"

namespace shell::help {

char32_t FromCodePage1252(unsigned char byte) {
  static constexpr char16_t kHigh[32] = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                         0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};
  return byte >= 0x80 && byte < 0xA0 ? kHigh[byte - 0x80] : byte;
}

void AppendUtf8(std::string& text, char32_t character) {
  if ((character >= 0xD800 && character < 0xE000) || character > 0x10FFFF) character = kReplacement;
  const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
  const auto addRest = [&add](char32_t bits) { add(0x80 | (bits & 0x3F)); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0 | (character >> 6));
    addRest(character);
  } else if (character < 0x10000) {
    add(0xE0 | (character >> 12));
    addRest(character >> 6);
    addRest(character);
  } else {
    add(0xF0 | (character >> 18));
    addRest(character >> 12);
    addRest(character >> 6);
    addRest(character);
  }
}

}  // namespace shell::help
