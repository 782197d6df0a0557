#include "model/faults.h"
#include "shell/navigation/bar_wrap.h"
#include "shell/navigation/input_codes.h"
#include "shell/navigation/navigation.h"

namespace shell::navigation {

namespace {

/// An arrow alone: the model turns by one degree and wraps at the end of the bar.
void StepModel(Navigation& view, int arrow) {
  switch (arrow) {
    case kLeft:
      StepOrJump(view.ScrollYaw, 1, 180, -179);
      break;
    case kUp:
      StepOrJump(view.ScrollPitch, -1, -90, 269);
      break;
    case kRight:
      StepOrJump(view.ScrollYaw, -1, -180, 179);
      break;
    case kDown:
      StepOrJump(view.ScrollPitch, 1, 270, -89);
      break;
    default:
      break;
  }
}

/// Shift and an arrow: ten degrees.
void LeapModel(Navigation& view, int arrow) {
  switch (arrow) {
    case kLeft:
      SetWrappedAbove(view.ScrollYaw, view.ScrollYaw.Value() + 10);
      break;
    case kUp:
      SetWrappedBelow(view.ScrollPitch, view.ScrollPitch.Value() - 10);
      break;
    case kRight:
      SetWrappedBelow(view.ScrollYaw, view.ScrollYaw.Value() - 10);
      break;
    case kDown:
      SetWrappedAbove(view.ScrollPitch, view.ScrollPitch.Value() + 10);
      break;
    default:
      break;
  }
}

/// Ctrl and an arrow: the camera turns in place.
void TurnCamera(Navigation& view, int arrow) {
  switch (arrow) {
    case kLeft:
      view.Turn_Camera_Left();
      break;
    case kUp:
      view.Tilt_Camera_Up();
      break;
    case kRight:
      view.Turn_Camera_Right();
      break;
    case kDown:
      view.Tilt_Camera_Down();
      break;
    default:
      break;
  }
}

/// The arrow picture with the direction of an arrow key.
int ArrowPictureOf(int arrow) {
  switch (arrow) {
    case kLeft:
      return 0;
    case kRight:
      return 1;
    case kUp:
      return 2;
    default:
      return 3;
  }
}

}  // namespace

void Navigation::Form_KeyDown(int keyCode, int shift) {
  try {
    if (shift == kShift && !WalkMode) Actions.SetPointer(Pointer::kUpArrow);
    PressKey(keyCode, shift);
  } catch (const model::Fault&) {
    // Deliberate: a fault in a key handler never ends the program, not even when Home cannot draw the
    // package.
  }
}

void Navigation::Form_KeyUp(int /*keyCode*/, int shift) {
  if (shift == 0 && !WalkMode) Actions.SetPointer(Pointer::kDefault);
}

void Navigation::Dummy_Click() { Form_KeyDown(kHome, 0); }

bool Navigation::AnswersTo(int keyCode) {
  switch (keyCode) {
    case kEscape:
    case kHome:
    case kLeft:
    case kUp:
    case kRight:
    case kDown:
    case kD:
    case kL:
    case kR:
    case kU:
    case kKeypadPlus:
    case kKeypadMinus:
    case kEqualsPlus:
    case kMinus:
      return true;
    default:
      return false;
  }
}

void Navigation::PressKey(int keyCode, int shift) {
  switch (keyCode) {
    case kEscape:
      Actions.EndProgram();
      break;
    case kHome:
      Actions.Reload();
      break;
    case kLeft:
    case kUp:
    case kRight:
    case kDown:
      PressArrow(keyCode, shift);
      break;
    case kD:
      Tilt_Camera_Down();
      break;
    case kL:
      Turn_Camera_Left();
      break;
    case kR:
      Turn_Camera_Right();
      break;
    case kU:
      Tilt_Camera_Up();
      break;
    case kKeypadPlus:
    case kEqualsPlus:
      Move_Camera_In(shift);
      break;
    case kKeypadMinus:
    case kMinus:
      Move_Camera_Out(shift);
      break;
    default:
      break;
  }
}

void Navigation::PressArrow(int keyCode, int shift) {
  switch (shift) {
    case 0:
      StepModel(*this, keyCode);
      break;
    case kShift:
      LeapModel(*this, keyCode);
      break;
    case kCtrl:
      TurnCamera(*this, keyCode);
      break;
    case kAlt:
      if (keyCode == kUp) Move_Camera_In(0);
      if (keyCode == kDown) Move_Camera_Out(0);
      break;
    case kCtrl + kAlt:
      Slide(ArrowPictureOf(keyCode));
      break;
    default:
      break;
  }
}

}  // namespace shell::navigation
