/// How a turn continues beyond the end of a scroll bar: each way of turning has its own rule.
#pragma once

#include "shell/navigation/scroll_bar.h"

namespace shell::navigation {

/// One small step; a bar that stands at `edge` goes to `beyond` instead.
inline void StepOrJump(ScrollBar& bar, int step, int edge, int beyond) {
  bar.SetValue(bar.Value() == edge ? beyond : bar.Value() + step);
}

/// Sets the bar, one full turn back when `value` is above its range. Below it the bar clamps.
inline void SetWrappedAbove(ScrollBar& bar, int value) {
  bar.SetValue(value > bar.Max() ? value - 360 : value);
}

/// Sets the bar, one full turn on when `value` is below its range. Above it the bar clamps.
inline void SetWrappedBelow(ScrollBar& bar, int value) {
  bar.SetValue(value < bar.Min() ? value + 360 : value);
}

}  // namespace shell::navigation
