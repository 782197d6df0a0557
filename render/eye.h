/// A camera pose in doubles; the walking camera is 16-bit.
#pragma once

#include <glm/vec3.hpp>

namespace render {

/// Angle of view from the lower to the upper edge of every picture, degrees.
inline constexpr double kFieldOfView = 60.0;

/// Units   scene units, y up
struct Eye {
  glm::dvec3 Position{};
  glm::dvec3 Target{};
  glm::dvec3 Up{};
  double Near = 1.0;
  double Far = 2000.0;
};

}  // namespace render
