/// The camera options of a picture.
#pragma once

#include <optional>

#include "render/camera.h"
#include "render/named_view.h"

namespace CLI {
class App;
}

namespace yax {

struct CameraOptions {
  std::optional<render::NamedView> View;  ///< in place of everything below
  // The window's start view.
  render::Camera Camera;
  render::ModelRotation Rotation{.RotPitch = 90.0F};
};

/// Adds --view, and --pitch, --yaw, --cam, --heading and --look, which it excludes.
void AddCameraOptions(CLI::App& command, CameraOptions& options);

/// Faults  Unusable when the target's height, --cam Y plus --look, leaves 16 bits
void CheckCamera(const CameraOptions& options);

}  // namespace yax
