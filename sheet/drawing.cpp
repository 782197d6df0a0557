#include "sheet/drawing.h"

#include <glib.h>

#include <algorithm>

namespace sheet {

std::size_t Drawing::LayerOf(std::string_view name) {
  const auto place = std::find(Layers.begin(), Layers.end(), name) - Layers.begin();
  const auto number = static_cast<std::size_t>(place);
  if (number == Layers.size()) Layers.emplace_back(name);
  return number;
}

std::string CleanText(std::string_view bytes) {
  gchar* const valid = g_utf8_make_valid(bytes.data(), static_cast<gssize>(bytes.size()));
  std::string text;
  for (const gchar* at = valid; *at != '\0'; at = g_utf8_next_char(at)) {
    const gunichar c = g_utf8_get_char(at);
    // XML does not allow U+FFFE and U+FFFF; the separators U+2028 and U+2029 would end a line.
    const bool blank = g_unichar_iscntrl(c) || c == 0x2028U || c == 0x2029U || (c & 0xFFFEU) == 0xFFFEU;
    text.append(blank ? " " : std::string_view(at, static_cast<std::size_t>(g_utf8_next_char(at) - at)));
  }
  g_free(valid);
  return text;
}

}  // namespace sheet
