/// Moves the camera and turns the model by keys, drags, wheel, scroll bars, buttons and arrows.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/callback.h"
#include "render/camera.h"
#include "shell/navigation/scroll_bar.h"

namespace shell::navigation {

enum class Pointer { kDefault, kUpArrow };

/// Calls from navigation to the window.
struct NavigationActions {
  model::Callback<> Repaint;  ///< paints the view at once
  model::Callback<> Reload;   ///< runs the window's whole load routine
  model::Callback<> EndProgram;
  model::Callback<float, float> OpenCommandMenu;  ///< at x, y
  model::Callback<Pointer> SetPointer;
  model::Callback<> FocusDummy;  ///< gives the focus to the Dummy box
};

/// The pointer's position at the previous mouse event, and the counters of the throttled drags.
struct MouseTracking {
  float LastX = 0.0F, LastY = 0.0F;     ///< unrounded
  std::int32_t LastXi = 0, LastYi = 0;  ///< rounded; a move's direction is relative to these
  float DeltaX = 0.0F, DeltaY = 0.0F;   ///< of the current move: positive to the left and upwards
  std::int16_t ZoomTick = 0;            ///< Alt drag
  std::int16_t PanTick = 0;             ///< middle button
  std::int16_t SlideTick = 0;           ///< Ctrl+Alt drag
  bool InMouseMove = false;             ///< while set, the bars' handlers do not repaint; the move does
};

/// The walking camera and the turning model, with the main window's handlers for them.
///
/// Units   pointer positions in pixels; in a proportional drag one pixel is one degree
/// Faults  Overflow when a 16-bit camera value leaves its range, and whatever an action throws.
///         Form_KeyDown, Dummy_Click and WheelMoved trap faults: they end silently and keep the changes
///         made so far. All others let faults through.
class Navigation {
 public:
  Navigation();
  Navigation(const Navigation&) = delete;
  Navigation& operator=(const Navigation&) = delete;

  NavigationActions Actions;

  render::Camera Camera;
  render::ModelRotation Rotation;
  ScrollBar ScrollPitch{-90, 270};
  ScrollBar ScrollYaw{-180, 180};
  MouseTracking Mouse;
  bool WalkMode = false;     ///< a load keeps this and the ticks
  bool WheelHooked = false;  ///< set once the window receives the wheel of the whole program

  /// A load calls both. ResetRotation pitches the model by 90 degrees and repaints.
  void ResetCamera() { Camera = {}; }
  void ResetRotation();

  /// Moves the eye along the heading without a repaint; rounds each component to a whole unit.
  void MoveCamera(double distance);
  /// These repaint. A `doubleStep` other than 0 doubles the step.
  void Move_Camera_In(int doubleStep);
  void Move_Camera_Out(int doubleStep);
  void Turn_Camera_Left();
  void Turn_Camera_Right();
  void Tilt_Camera_Up();
  void Tilt_Camera_Down();
  void Trans_Click(int index);  ///< arrow picture 0..3: left, right, up, down
  /// These do not repaint. A `byDelta` other than 0 moves by the mouse's delta, 0 by a fixed step.
  void MouseTurn_Camera_Left(int byDelta);
  void MouseTurn_Camera_Right(int byDelta);
  void MouseTilt_Camera_Up(int byDelta);
  void MouseTilt_Camera_Down(int byDelta);

  /// Moves one step, whatever the size of `delta`: in when it is positive, out when it is negative.
  void WheelMoved(std::int32_t delta);
  /// Moves for "IN", "OUT", "LEFT", "RIGHT", "UP" or "DOWN"; ignores any other text. Deliberate: no control
  /// calls it.
  void NavigateByKey(std::string_view keyword);

  void cmdForward_Click() { Move_Camera_In(0); }
  void cmdBack_Click() { Move_Camera_Out(0); }
  void cmdLeft_Click() { Turn_Camera_Left(); }
  void cmdRight_Click() { Turn_Camera_Right(); }
  void cmdUp_Click() { Tilt_Camera_Up(); }
  void cmdDown_Click() { Tilt_Camera_Down(); }
  void ScrollPitch_Change();
  void ScrollPitch_Scroll() { ScrollPitch_Change(); }
  void ScrollYaw_Change();
  void ScrollYaw_Scroll() { ScrollYaw_Change(); }
  void Dummy_Click();

  /// True for keys that Form_KeyDown handles with at least one modifier state.
  static bool AnswersTo(int keyCode);
  void Form_KeyDown(int keyCode, int shift);
  void Form_KeyUp(int keyCode, int shift);
  void Form_MouseDown(int button, int shift, float x, float y);
  void Form_DblClick();
  void Form_MouseMove(int button, int shift, float x, float y);

 private:
  void Slide(int index);
  void PressKey(int keyCode, int shift);
  void PressArrow(int keyCode, int shift);
};

}  // namespace shell::navigation
