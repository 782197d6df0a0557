/// A scroll bar's value without the bar: limits, clamping, change events.
#pragma once

#include <cstdint>

#include "model/callback.h"

namespace shell::navigation {

/// Show updates the bar on the screen, which passes user input to SetValue or Drag. A value out of range is
/// clamped; setting the present value calls nothing.
class ScrollBar {
 public:
  /// Starts at 0, clamped to the limits.
  ScrollBar(std::int16_t min, std::int16_t max);

  std::int16_t Min() const { return min_; }
  std::int16_t Max() const { return max_; }
  std::int16_t Value() const { return value_; }

  /// The program, a click or a page step sets the value: Show, then Change.
  void SetValue(int value);

  /// The user drags the thumb: Show, then Scroll.
  void Drag(int value);

  model::Callback<std::int16_t> Show;  ///< sets the bar on the screen to this value
  model::Callback<> Change;
  model::Callback<> Scroll;

 private:
  bool Store(int value);

  std::int16_t min_;
  std::int16_t max_;
  std::int16_t value_;
};

}  // namespace shell::navigation
