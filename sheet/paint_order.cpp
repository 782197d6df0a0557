#include "sheet/paint_order.h"

#include <algorithm>
#include <charconv>

namespace sheet {

std::vector<const Item*> InPaintOrder(const Drawing& drawing, const std::vector<Item>& items) {
  std::vector<std::size_t> next(drawing.Layers.size() + 1);
  for (const Item& item : items) ++next[item.Layer + 1];
  for (std::size_t layer = 1; layer < next.size(); ++layer) next[layer] += next[layer - 1];
  std::vector<const Item*> ordered(items.size());
  for (const Item& item : items) ordered[next[item.Layer]++] = &item;
  return ordered;
}

std::vector<double> DashLengths(Dash pattern) {
  switch (pattern) {
    case Dash::Solid:
      break;
    case Dash::Dashed:
      return {2.0, 1.0};
    case Dash::Centre:
      return {6.0, 1.2, 0.6, 1.2};
    case Dash::Dotted:
      return {0.2, 0.8};
    case Dash::DashDot:
      return {2.0, 0.7, 0.2, 0.7};
    case Dash::DashDotDot:
      return {2.0, 0.7, 0.2, 0.7, 0.2, 0.7};
  }
  return {};
}

std::string Decimal(double value, int decimals) {
  char digits[400];
  const auto end =
      std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed, decimals);
  std::string text(digits, end.ptr);
  if (decimals > 0) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return text == "-0" ? "0" : text;
}

int DecimalsOf(const std::string& unit) {
  if (unit == "mm") return 4;
  return unit == "mil" ? 2 : 1;
}

}  // namespace sheet
