#include "shell/navigation/scroll_bar.h"

#include <algorithm>

namespace shell::navigation {

ScrollBar::ScrollBar(std::int16_t min, std::int16_t max)
    : min_(min), max_(max), value_(std::clamp(std::int16_t{0}, min, max)) {}

void ScrollBar::SetValue(int value) {
  if (Store(value)) Change();
}

void ScrollBar::Drag(int value) {
  if (Store(value)) Scroll();
}

bool ScrollBar::Store(int value) {
  const auto clamped = static_cast<std::int16_t>(std::clamp<int>(value, min_, max_));
  if (clamped == value_) return false;
  value_ = clamped;
  Show(value_);
  return true;
}

}  // namespace shell::navigation
