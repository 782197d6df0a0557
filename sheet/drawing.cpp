#include "sheet/drawing.h"

#include <utf8.h>
#include <algorithm>

namespace sheet {

std::size_t Drawing::LayerOf(std::string_view name) {
  const auto place = std::find(Layers.begin(), Layers.end(), name) - Layers.begin();
  const auto number = static_cast<std::size_t>(place);
  if (number == Layers.size()) Layers.emplace_back(name);
  return number;
}

std::string CleanText(std::string_view bytes) {
  std::u32string text = utf8::utf8to32(utf8::replace_invalid(bytes));
  for (char32_t& c : text) {
    // XML does not allow U+FFFE and U+FFFF; the separators U+2028 and U+2029 would end a line.
    const bool control = c < 0x20 || (c >= 0x7F && c < 0xA0);
    if (control || c == 0x2028 || c == 0x2029 || (c & 0xFFFE) == 0xFFFE) c = U' ';
  }
  return utf8::utf32to8(text);
}

}  // namespace sheet
