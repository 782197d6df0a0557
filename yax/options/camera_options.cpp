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

CLI::Option* AddView(CLI::App& command, CameraOptions& options) {
  std::vector<std::string> names;
  for (const auto& [name, view] : kViews) names.emplace_back(name);
  const auto take = [&options](const std::string& text) {
    for (const auto& [name, view] : kViews)
      if (text == name) options.View = view;
  };
  return command
      .add_option_function<std::string>("--view", take,
                                        "A view that shows the whole package (default: the window's)")
      ->check(CLI::IsMember(names))
      ->group(kCameraGroup);
}

}  // namespace

void AddCameraOptions(CLI::App& command, CameraOptions& options) {
  CLI::Option* const view = AddView(command, options);
  const auto add = [&](const char* name, const char* value, const char* description, auto take) {
    const auto takeNamed = [name, take](const std::string& text) { take(name, text); };
    view->excludes(command.add_option_function<std::string>(name, takeNamed, description)
                       ->type_name(value)
                       ->group(kCameraGroup));
  };
  add("--pitch", "DEGREES", "The model's turn about its x axis (default: 90)",
      [&options](const char* name, const std::string& text) {
        options.Rotation.RotPitch = NumberOf(name, text);
      });
  add("--yaw", "DEGREES", "The model's turn about its y axis (default: 0)",
      [&options](const char* name, const std::string& text) {
        options.Rotation.RotYaw = NumberOf(name, text);
      });
  add("--cam", "X,Y,Z", "Where the eye stands, whole numbers (default: 0,0,5)",
      [&options](const char* name, const std::string& text) {
        const std::array<std::int16_t, 3> eye = Whole16TripleOf(name, text);
        options.Camera.CamX = eye[0];
        options.Camera.CamY = eye[1];
        options.Camera.CamZ = eye[2];
      });
  add("--heading", "RADIANS", "Direction of view, counted to the left from the x axis (default: 1.56)",
      [&options](const char* name, const std::string& text) {
        options.Camera.CamYaw = NumberOf(name, text);
      });
  add("--look", "HEIGHT", "The target's height over the eye, 100 units away, a whole number (default: 0)",
      [&options](const char* name, const std::string& text) {
        options.Camera.CamLook = Whole16Of(name, text);
      });
}

void CheckCamera(const CameraOptions& options) {
  const int height = int(options.Camera.CamY) + int(options.Camera.CamLook);
  if (height < -32768 || height > 32767)
    throw Unusable(CommandLine(), "--cam and --look give a target at height " + std::to_string(height),
                   "keep it from -32768 to 32767");
}

}  // namespace yax
