/// How a turn continues past the end of a scroll bar. Each kind of turn has a different rule.
#pragma once

#include "shell/navigation/scroll_bar.h"

namespace shell::navigation {

/// Moves the bar by one small step; from `edge` it jumps to `beyond` instead.
inline void StepOrJump(ScrollBar& bar, int step, int edge, int beyond) {
  bar.SetValue(bar.Value() == edge ? beyond : bar.Value() + step);
}

/// Sets the bar; subtracts a full turn when `value` is above its range. Below the range the bar clamps.
inline void SetWrappedAbove(ScrollBar& bar, int value) {
  bar.SetValue(value > bar.Max() ? value - 360 : value);
}

/// Sets the bar; adds a full turn when `value` is below its range. Above the range the bar clamps.
inline void SetWrappedBelow(ScrollBar& bar, int value) {
  bar.SetValue(value < bar.Min() ? value + 360 : value);
}

}  // namespace shell::navigation
