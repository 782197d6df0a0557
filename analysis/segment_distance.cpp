#include "analysis/segment_distance.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>

namespace analysis {

namespace {

glm::dvec3 At(const Segment& segment, const glm::dvec3& along, double part) {
  return segment.A + part * along;
}

/// How far along a segment the point nearest to `point` lies, 0 to 1.
double PartNearestTo(const glm::dvec3& point, const Segment& segment, const glm::dvec3& along,
                     double squaredLength) {
  if (squaredLength == 0.0) return 0.0;
  return std::clamp(glm::dot(point - segment.A, along) / squaredLength, 0.0, 1.0);
}

struct Best {
  double Squared;
  glm::dvec3 OnFirst, OnSecond;

  void Take(const glm::dvec3& onFirst, const glm::dvec3& onSecond) {
    const glm::dvec3 apart = onFirst - onSecond;
    const double squared = glm::dot(apart, apart);
    if (squared < Squared) *this = {squared, onFirst, onSecond};
  }
};

}  // namespace

Nearness NearestPoints(const Segment& first, const Segment& second) {
  const glm::dvec3 u = first.B - first.A;
  const glm::dvec3 v = second.B - second.A;
  const double uu = glm::dot(u, u);
  const double vv = glm::dot(v, v);
  Best best{HUGE_VAL, first.A, second.A};
  // The smallest distance is at an end of one segment, or between their interiors. Every candidate lies on
  // both segments, so rounding can only miss the minimum, never go below it.
  best.Take(first.A, At(second, v, PartNearestTo(first.A, second, v, vv)));
  best.Take(first.B, At(second, v, PartNearestTo(first.B, second, v, vv)));
  best.Take(At(first, u, PartNearestTo(second.A, first, u, uu)), second.A);
  best.Take(At(first, u, PartNearestTo(second.B, first, u, uu)), second.B);
  // The lines' common perpendicular. The cross product itself stays exact for lines that are nearly parallel,
  // where uu * vv - (u * v)^2 would cancel out.
  const glm::dvec3 normal = glm::cross(u, v);
  const double squaredNormal = glm::dot(normal, normal);
  if (squaredNormal > 0.0) {
    const double part = glm::dot(glm::cross(second.A - first.A, v), normal) / squaredNormal;
    if (part > 0.0 && part < 1.0) {
      const glm::dvec3 onFirst = At(first, u, part);
      best.Take(onFirst, At(second, v, PartNearestTo(onFirst, second, v, vv)));
    }
  }
  return {std::sqrt(best.Squared), best.OnFirst, best.OnSecond};
}

}  // namespace analysis
