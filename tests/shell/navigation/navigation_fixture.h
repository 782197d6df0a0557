/// A navigation whose actions are counted instead of done.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>

#include "model/faults.h"
#include "shell/navigation/input_codes.h"
#include "shell/navigation/navigation.h"

namespace shell {

/// What differs from the first frame, in words: "z 4", "heading -10", "yaw 1 pitch 91", "" for nothing.
inline std::string Moves(const navigation::Navigation& view) {
  std::string text;
  const auto add = [&text](const char* name, long value, long first) {
    if (value != first) text += (text.empty() ? "" : " ") + std::string(name) + " " + std::to_string(value);
  };
  add("x", view.Camera.CamX, 0);
  add("y", view.Camera.CamY, 0);
  add("z", view.Camera.CamZ, 5);
  // In the program's own degrees, of which 180 make 3.142.
  add("heading", std::lround((double(view.Camera.CamYaw) - 1.56) * 180.0 / 3.142), 0);
  add("look", view.Camera.CamLook, 0);
  add("yaw", std::lround(view.Rotation.RotYaw), 0);
  add("pitch", std::lround(view.Rotation.RotPitch), 90);
  return text;
}

class NavigationTest : public testing::Test {
 protected:
  struct Counts {
    int repaints = 0, menus = 0, dummyFocus = 0;
    std::string asked;  ///< for a load or the end
    float menuX = 0.0F, menuY = 0.0F;
    std::optional<navigation::Pointer> pointer;
  };

  NavigationTest() { Restart(); }

  /// Back to what a first load leaves: pitch 90, yaw 0, start camera, nothing counted.
  void Restart() {
    view.emplace();
    navigation::NavigationActions& actions = view->Actions;
    actions.Repaint = [this] { counts.repaints++; };
    actions.Reload = [this] { counts.asked += "reload"; };
    actions.EndProgram = [this] { counts.asked += "end"; };
    actions.OpenCommandMenu = [this](float x, float y) {
      counts.menus++;
      counts.menuX = x;
      counts.menuY = y;
    };
    actions.SetPointer = [this](navigation::Pointer pointer) { counts.pointer = pointer; };
    actions.FocusDummy = [this] { counts.dummyFocus++; };
    view->ResetCamera();
    view->ResetRotation();
    counts = {};
  }

  /// The changes since Restart, which bars and model share.
  std::string Changes() const {
    EXPECT_EQ(float(view->ScrollYaw.Value()), view->Rotation.RotYaw);
    EXPECT_EQ(float(view->ScrollPitch.Value()), view->Rotation.RotPitch);
    return Moves(*view) + counts.asked;
  }

  std::optional<navigation::Navigation> view;
  Counts counts;
};

}  // namespace shell
