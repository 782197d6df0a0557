#include "analysis/plan_rectangle.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>
#include <limits>

namespace analysis {

namespace {

using Corners4 = std::array<glm::dvec2, 4>;

glm::dvec2 Across(const glm::dvec2& axis) { return {-axis.y, axis.x}; }

double DistanceTo(const glm::dvec2& point, const glm::dvec2& from, const glm::dvec2& to) {
  const glm::dvec2 along = to - from;
  const double square = glm::dot(along, along);
  const double share = square == 0.0 ? 0.0 : std::clamp(glm::dot(point - from, along) / square, 0.0, 1.0);
  return glm::distance(point, from + share * along);
}

/// Whether all of b lies beyond one of a's edges.
bool IsApart(const Corners4& a, const Corners4& b) {
  for (std::size_t k = 0; k < a.size(); ++k) {
    const glm::dvec2 edge = a[(k + 1) % a.size()] - a[k];
    const glm::dvec2 outwards(edge.y, -edge.x);
    const auto isBeyond = [&](const glm::dvec2& corner) { return glm::dot(corner - a[k], outwards) > 0.0; };
    if (std::all_of(b.begin(), b.end(), isBeyond)) return true;
  }
  return false;
}

}  // namespace

Corners4 PlanRectangle::Corners() const {
  const glm::dvec2 along = Axis * Half.x;
  const glm::dvec2 across = Across(Axis) * Half.y;
  return {Centre - along - across, Centre + along - across, Centre + along + across, Centre - along + across};
}

double PlanRectangle::ShorterSide() const { return 2.0 * std::min(Half.x, Half.y); }

double PlanRectangle::LongerSide() const { return 2.0 * std::max(Half.x, Half.y); }

glm::dvec2 AxisAt(double degrees) {
  const double radians = glm::radians(degrees);
  return {std::cos(radians), std::sin(radians)};
}

double DistanceBetween(const PlanRectangle& first, const PlanRectangle& second) {
  const Corners4 a = first.Corners();
  const Corners4 b = second.Corners();
  if (!IsApart(a, b) && !IsApart(b, a)) return 0.0;
  // Convex outlines that are apart are nearest at a corner of one of them.
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t k = 0; k < a.size(); ++k) {
    for (const glm::dvec2& corner : a)
      least = std::min(least, DistanceTo(corner, b[k], b[(k + 1) % b.size()]));
    for (const glm::dvec2& corner : b)
      least = std::min(least, DistanceTo(corner, a[k], a[(k + 1) % a.size()]));
  }
  return least;
}

double DepthIn(const PlanRectangle& outer, const PlanRectangle& inner) {
  double least = std::numeric_limits<double>::infinity();
  for (const glm::dvec2& corner : inner.Corners()) {
    const glm::dvec2 from = corner - outer.Centre;
    least = std::min({least, outer.Half.x - std::fabs(glm::dot(from, outer.Axis)),
                      outer.Half.y - std::fabs(glm::dot(from, Across(outer.Axis)))});
  }
  return least;
}

}  // namespace analysis
