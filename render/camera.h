/// The pose of the eye and the rotation of the model.
#pragma once

#include <cstdint>

namespace render {

/// The walking camera, in scene units (y is up). `camera = {}` is the start-up reset.
struct Camera {
  std::int16_t CamX = 0;
  std::int16_t CamY = 0;
  std::int16_t CamZ = 5;
  float CamYaw = 1.56F;      ///< heading, radians: the eye looks along (cos, 0, -sin)
  double CamStep = 1.0;      ///< length of one move step
  std::int16_t CamLook = 0;  ///< added to CamY for the height of the target
};

/// Rotation of the model about its own axes, degrees.
struct ModelRotation {
  float RotPitch = 0.0F;  ///< about x
  float RotYaw = 0.0F;    ///< about y
  float RotRoll = 0.0F;   ///< about z; nothing changes it
};

}  // namespace render
