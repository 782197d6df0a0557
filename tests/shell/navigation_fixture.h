/// A navigation whose actions are counted instead of done.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>

#include "model/faults.h"
#include "shell/input_codes.h"
#include "shell/navigation.h"

namespace shell {

class NavigationTest : public testing::Test {
 protected:
  struct Counts {
    int repaints = 0, reloads = 0, ends = 0, menus = 0, dummyFocus = 0;
    float menuX = 0.0F, menuY = 0.0F;
    std::optional<Pointer> pointer;
  };

  NavigationTest() { Restart(); }

  /// Back to what a first load leaves: pitch 90, yaw 0, start camera, nothing counted.
  void Restart() {
    view.emplace();
    NavigationActions& actions = view->actions;
    actions.repaint = [this] { counts.repaints++; };
    actions.reload = [this] { counts.reloads++; };
    actions.endProgram = [this] { counts.ends++; };
    actions.openCommandMenu = [this](float x, float y) {
      counts.menus++;
      counts.menuX = x;
      counts.menuY = y;
    };
    actions.setPointer = [this](Pointer pointer) { counts.pointer = pointer; };
    actions.focusDummy = [this] { counts.dummyFocus++; };
    view->ResetCamera();
    view->ResetRotation();
    counts = {};
  }

  /// What has changed since Restart, in words: "z 4", "heading +10", "yaw 1 pitch 91", "" for nothing.
  std::string Changes() const {
    std::string text;
    const auto add = [&](const std::string& word) { text += (text.empty() ? "" : " ") + word; };
    const render::Camera& now = view->Camera;
    if (now.CamX != 0) add("x " + std::to_string(now.CamX));
    if (now.CamY != 0) add("y " + std::to_string(now.CamY));
    if (now.CamZ != 5) add("z " + std::to_string(now.CamZ));
    // In the program's own degrees, of which 180 make 3.142.
    const long turned = std::lround((double(now.CamYaw) - 1.56) * 180.0 / 3.142);
    if (turned != 0) add((turned > 0 ? "heading +" : "heading ") + std::to_string(turned));
    if (now.CamLook != 0) add("look " + std::to_string(now.CamLook));
    if (view->ScrollYaw.Value() != 0) add("yaw " + std::to_string(view->ScrollYaw.Value()));
    if (view->ScrollPitch.Value() != 90) add("pitch " + std::to_string(view->ScrollPitch.Value()));
    if (counts.reloads != 0) add("reload");
    if (counts.ends != 0) add("end");
    return text;
  }

  /// Puts the pointer at (x, y), as a press does.
  void Press(float x, float y) { view->Form_MouseDown(kLeftButton, kAlt, x, y); }

  std::optional<Navigation> view;
  Counts counts;
};

}  // namespace shell
