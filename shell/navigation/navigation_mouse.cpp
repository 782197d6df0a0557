#include "model/arithmetic.h"
#include "shell/navigation/bar_wrap.h"
#include "shell/navigation/input_codes.h"
#include "shell/navigation/navigation.h"
#include "shell/navigation/scoped_flag.h"

namespace shell::navigation {

namespace {

/// One mouse move. Its direction is relative to the last rounded position.
struct Move {
  Move(const MouseTracking& last, int button, int shift, float x, float y)
      : Button(button),
        Shift(shift),
        Left(double(x) < last.LastXi),
        Right(double(x) > last.LastXi),
        Up(double(y) < last.LastYi),
        Down(double(y) > last.LastYi) {}

  bool Is(int button, int shift) const { return Button == button && Shift == shift; }

  int Button, Shift;
  bool Left, Right, Up, Down;
};

/// Each event turns the model by one degree, however far the pointer moved.
void StepDrag(Navigation& view, const Move& move) {
  if (move.Left) StepOrJump(view.ScrollYaw, 1, 180, -179);
  // Deliberate: to the right it jumps from -179 to 180; the Right key jumps from -180 to 179.
  if (move.Right) StepOrJump(view.ScrollYaw, -1, -179, 180);
  if (move.Down) StepOrJump(view.ScrollPitch, 1, 270, -89);
  if (move.Up) StepOrJump(view.ScrollPitch, -1, -90, 269);
}

/// The model turns by one degree per pixel.
void ProportionalDrag(Navigation& view, const Move& move) {
  const auto yaw = [&] { return model::Nearest(view.ScrollYaw.Value() + double(view.Mouse.DeltaX)); };
  const auto pitch = [&] { return model::Nearest(view.ScrollPitch.Value() - double(view.Mouse.DeltaY)); };
  if (move.Left) SetWrappedAbove(view.ScrollYaw, yaw());
  if (move.Right) SetWrappedBelow(view.ScrollYaw, yaw());
  if (move.Down) SetWrappedAbove(view.ScrollPitch, pitch());
  if (move.Up) SetWrappedBelow(view.ScrollPitch, pitch());
}

/// The camera turns by one degree and tilts by one unit per pixel.
void CameraDrag(Navigation& view, const Move& move) {
  if (move.Left) view.MouseTurn_Camera_Left(move.Shift);
  if (move.Right) view.MouseTurn_Camera_Right(move.Shift);
  if (move.Down) view.MouseTilt_Camera_Down(move.Shift);
  if (move.Up) view.MouseTilt_Camera_Up(move.Shift);
}

/// One step of the arrow pictures in each direction of the move.
void TransByDirection(Navigation& view, const Move& move) {
  if (move.Left) view.Trans_Click(0);
  if (move.Right) view.Trans_Click(1);
  if (move.Up) view.Trans_Click(2);
  if (move.Down) view.Trans_Click(3);
}

/// Deliberate: moves with any button count, so the first step of a drag may come early.
void PanDrag(Navigation& view, const Move& move) {
  if (view.Mouse.PanTick < 3) {
    view.Mouse.PanTick++;
    return;
  }
  if (move.Button == kMiddleButton) TransByDirection(view, move);
  view.Mouse.PanTick = 0;
}

/// Counts every move, like PanDrag; in walk mode every move is a step.
void ZoomDrag(Navigation& view, const Move& move) {
  if (view.Mouse.ZoomTick < 3 && !view.WalkMode) {
    view.Mouse.ZoomTick++;
    return;
  }
  if (move.Is(kLeftButton, kAlt)) {
    if (move.Up) view.Move_Camera_In(move.Shift);
    if (move.Down) view.Move_Camera_Out(move.Shift);
  }
  view.Mouse.ZoomTick = 0;
}

/// Deliberate: an event without a step counts twice, so the count rises by 2, in walk mode by 5.
void SlideDrag(Navigation& view, const Move& move) {
  std::int16_t& tick = view.Mouse.SlideTick;
  tick = model::Add16(tick, view.WalkMode ? 4 : 1);
  if (tick < 16) {
    tick++;
    return;
  }
  tick = 0;
  TransByDirection(view, move);
}

}  // namespace

void Navigation::Form_MouseDown(int button, int shift, float x, float y) {
  if (button == kRightButton && shift == 0) {
    Actions.OpenCommandMenu(x, y);
    return;
  }
  Mouse.LastX = x;
  Mouse.LastY = y;
  Mouse.LastXi = model::NearestLong(double(x));
  Mouse.LastYi = model::NearestLong(double(y));
}

void Navigation::Form_DblClick() {
  WalkMode = !WalkMode;
  Actions.SetPointer(WalkMode ? Pointer::kUpArrow : Pointer::kDefault);
}

void Navigation::Form_MouseMove(int button, int shift, float x, float y) {
  Mouse.DeltaX = model::Single(double(Mouse.LastX) - double(x));
  Mouse.DeltaY = model::Single(double(Mouse.LastY) - double(y));
  Mouse.LastX = x;
  Mouse.LastY = y;
  const ScopedFlag handling(Mouse.InMouseMove);
  const Move move(Mouse, button, shift, x, y);

  if (move.Is(kLeftButton, 0) && !WalkMode) StepDrag(*this, move);
  if (move.Is(kLeftButton, kShift) || (move.Is(kLeftButton, 0) && WalkMode)) ProportionalDrag(*this, move);
  if (move.Is(kLeftButton, kCtrl)) CameraDrag(*this, move);
  PanDrag(*this, move);
  ZoomDrag(*this, move);
  if (move.Is(kLeftButton, kCtrl + kAlt)) SlideDrag(*this, move);

  Mouse.LastXi = model::NearestLong(double(x));
  Mouse.LastYi = model::NearestLong(double(y));
  Actions.Repaint();
}

}  // namespace shell::navigation
