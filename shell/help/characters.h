/// Single characters between code page 1252, Unicode and UTF-8.
#pragma once

#include <string>

namespace shell::help {

/// Replaces bytes and codes that are not characters.
inline constexpr char32_t kReplacement = 0xFFFD;

/// The character of a byte in code page 1252; kReplacement for the five bytes that it leaves free.
char32_t FromCodePage1252(unsigned char byte);

/// Appends `character` to `text` as UTF-8. Surrogates and what lies beyond Unicode become kReplacement.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace shell::help
