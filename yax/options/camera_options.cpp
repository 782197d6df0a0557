#include "yax/options/camera_options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "yax/messages.h"
#include "yax/options/option_text.h"

namespace yax {

namespace {

constexpr char kCameraGroup[] = "Camera";

using render::NamedView;
constexpr std::pair<const char*, NamedView> kViews[] = {
    {"top", NamedView::Top},   {"bottom", NamedView::Bottom}, {"front", NamedView::Front},
    {"back", NamedView::Back}, {"left", NamedView::Left},     {"right", NamedView::Right},
    {"iso", NamedView::Iso},
};

CLI::Option* AddView(CLI::App& command, render::Viewpoint& viewpoint) {
  std::vector<std::string> names;
  for (const auto& [name, view] : kViews) names.emplace_back(name);
  const auto take = [&viewpoint](const std::string& text) {
    for (const auto& [name, view] : kViews)
      if (text == name) viewpoint.View = view;
  };
  return command
      .add_option_function<std::string>(
          "--view", take, "A view that shows the whole package (default: the window's start view)")
      ->check(CLI::IsMember(names))
      ->group(kCameraGroup);
}

/// Refuses a target's height beyond 16 bits. Needs --cam to have been taken: CLI11 takes options in the order
/// in which they are added.
void CheckTarget(const render::Camera& camera) {
  const int height = int(camera.CamY) + int(camera.CamLook);
  if (height < -32768 || height > 32767)
    throw Unusable(CommandLine(), "--cam and --look give a target at height " + std::to_string(height),
                   "keep it from -32768 to 32767");
}

}  // namespace

void AddCameraOptions(CLI::App& command, render::Viewpoint& viewpoint) {
  CLI::Option* const view = AddView(command, viewpoint);
  const auto add = [&](const char* name, const char* value, const char* description, auto take) {
    const auto takeNamed = [name, take](const std::string& text) { take(name, text); };
    view->excludes(command.add_option_function<std::string>(name, takeNamed, description)
                       ->type_name(value)
                       ->group(kCameraGroup));
  };
  add("--pitch", "DEGREES", "The model's turn about its x axis (default: 90)",
      [&viewpoint](const char* name, const std::string& text) {
        viewpoint.Rotation.RotPitch = NumberOf(name, text);
      });
  add("--yaw", "DEGREES", "The model's turn about its y axis (default: 0)",
      [&viewpoint](const char* name, const std::string& text) {
        viewpoint.Rotation.RotYaw = NumberOf(name, text);
      });
  add("--cam", "X,Y,Z", "Position of the camera, whole numbers (default: 0,0,5)",
      [&viewpoint](const char* name, const std::string& text) {
        const std::array<std::int16_t, 3> eye = Whole16TripleOf(name, text);
        viewpoint.Camera.CamX = eye[0];
        viewpoint.Camera.CamY = eye[1];
        viewpoint.Camera.CamZ = eye[2];
      });
  add("--heading", "RADIANS",
      "Direction of view: angle from the x axis, counter-clockwise seen from above (+y) (default: 1.56)",
      [&viewpoint](const char* name, const std::string& text) {
        viewpoint.Camera.CamYaw = NumberOf(name, text);
      });
  add("--look", "HEIGHT",
      "The camera looks at a point 100 units away and this much higher, a whole number (default: 0)",
      [&viewpoint](const char* name, const std::string& text) {
        viewpoint.Camera.CamLook = Whole16Of(name, text);
        CheckTarget(viewpoint.Camera);
      });
}

}  // namespace yax
