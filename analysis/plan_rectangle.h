/// Rectangles seen from above, in any direction, and the distances between them.
#pragma once

#include <array>
#include <glm/vec2.hpp>

namespace analysis {

struct PlanRectangle {
  glm::dvec2 Centre{};
  glm::dvec2 Axis{1.0, 0.0};  ///< unit vector along which Half.x counts
  glm::dvec2 Half{};          ///< half the extents along and across the axis

  /// Counter-clockwise.
  std::array<glm::dvec2, 4> Corners() const;
  double ShorterSide() const;
  double LongerSide() const;

  bool operator==(const PlanRectangle&) const = default;
};

/// The unit vector at an angle counter-clockwise from x.
glm::dvec2 AxisAt(double degrees);

/// The smallest distance between two rectangles; 0 where they overlap.
double DistanceBetween(const PlanRectangle& a, const PlanRectangle& b);

/// The least distance of the inner rectangle's corners from the outer one's edge lines; negative where a
/// corner lies outside.
double DepthIn(const PlanRectangle& outer, const PlanRectangle& inner);

}  // namespace analysis
