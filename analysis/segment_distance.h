/// The smallest distance between two straight pieces in three dimensions, exact in double precision.
#pragma once

#include <array>

namespace analysis {

using Point3 = std::array<double, 3>;

/// From A to B; both may be the same point.
struct Segment {
  Point3 A{}, B{};
};

struct Nearness {
  double Distance = 0.0;
  Point3 OnFirst{}, OnSecond{};  ///< where the segments come that close; one such place when there are many
};

Nearness NearestPoints(const Segment& first, const Segment& second);

}  // namespace analysis
