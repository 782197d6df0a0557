/// The smallest distance between two line segments in space, exact in double precision.
#pragma once

#include <glm/vec3.hpp>

namespace analysis {

/// From A to B; both may be the same point.
struct Segment {
  glm::dvec3 A{}, B{};
};

struct Nearness {
  double Distance = 0.0;
  glm::dvec3 OnFirst{},
      OnSecond{};  ///< where the segments come that close; one such place when there are many
};

Nearness NearestPoints(const Segment& first, const Segment& second);

}  // namespace analysis
