/// A scroll bar's value without the bar: limits, clamping, and who hears of a change.
#pragma once

#include <cstdint>
#include <functional>

namespace shell::navigation {

/// The bar on the screen follows through show, and gives what the user does to SetValue or Drag.
/// A value out of range is clamped; the value it has already changes nothing and calls nobody.
class ScrollBar {
 public:
  /// Starts at 0, or at the limit nearest to it.
  ScrollBar(std::int16_t min, std::int16_t max);

  std::int16_t Min() const { return min_; }
  std::int16_t Max() const { return max_; }
  std::int16_t Value() const { return value_; }

  /// The program, a click or a page step sets the value: show, then change.
  void SetValue(int value);

  /// The user drags the thumb: show, then scroll.
  void Drag(int value);

  std::function<void(std::int16_t value)> show;  ///< brings the bar on the screen to the value
  std::function<void()> change;
  std::function<void()> scroll;

 private:
  bool Store(int value);

  std::int16_t min_;
  std::int16_t max_;
  std::int16_t value_;
};

}  // namespace shell::navigation
