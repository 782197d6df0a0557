#include "shell/help/characters.h"

#include <utf8.h>

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
  utf8::append(character, text);
}

}  // namespace shell::help
