#include "shell/navigation/navigation.h"

#include "model/faults.h"

namespace shell::navigation {

Navigation::Navigation() {
  ScrollPitch.Change = [this] { ScrollPitch_Change(); };
  ScrollPitch.Scroll = [this] { ScrollPitch_Scroll(); };
  ScrollYaw.Change = [this] { ScrollYaw_Change(); };
  ScrollYaw.Scroll = [this] { ScrollYaw_Scroll(); };
}

void Navigation::ResetRotation() {
  Rotation = {};
  ScrollPitch.SetValue(90);
  ScrollYaw.SetValue(0);
  // A bar that already has the value does not call its handler, but the rotation was just cleared.
  ScrollPitch_Change();
  ScrollYaw_Change();
}

void Navigation::ScrollPitch_Change() {
  Rotation.RotPitch = ScrollPitch.Value();
  if (!Mouse.InMouseMove) Actions.Repaint();
}

void Navigation::ScrollYaw_Change() {
  Rotation.RotYaw = ScrollYaw.Value();
  if (!Mouse.InMouseMove) Actions.Repaint();
}

void Navigation::WheelMoved(std::int32_t delta) {
  if (!WheelHooked) return;
  try {
    if (delta < 0) Move_Camera_Out(0);
    if (delta > 0) Move_Camera_In(0);
  } catch (const model::Fault&) {
    // Deliberate: where the camera's 16-bit coordinates end, the wheel does nothing.
  }
}

void Navigation::NavigateByKey(std::string_view keyword) {
  if (keyword == "IN") Move_Camera_In(0);
  if (keyword == "OUT") Move_Camera_Out(0);
  if (keyword == "LEFT") cmdLeft_Click();
  if (keyword == "RIGHT") cmdRight_Click();
  if (keyword == "UP") cmdUp_Click();
  if (keyword == "DOWN") cmdDown_Click();
}

}  // namespace shell::navigation
