#include "analysis/die_edges.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>
#include <limits>

namespace analysis {

namespace {

using model::Side;

glm::dvec2 Turned(const glm::dvec2& point, double degrees) {
  const double angle = glm::radians(degrees);
  return {point.x * std::cos(angle) - point.y * std::sin(angle),
          point.x * std::sin(angle) + point.y * std::cos(angle)};
}

}  // namespace

DieOutline BaseDieOf(const model::Package& package) {
  const double scale = double(package.UnitScale);
  return {{}, scale * double(package.CompW), scale * double(package.CompL), 0.0};
}

DieOutline StackedDieOf(const model::Package& package) {
  const double scale = double(package.UnitScale);
  // The stacked die's place counts y downwards, and so its turn is clockwise.
  return {scale * glm::dvec2(double(package.SDXOffset), -double(package.SDYOffset)),
          scale * double(package.SDCompW), scale * double(package.SDCompL), -double(package.SDRotation)};
}

glm::dvec2 NormalOf(Side side) {
  switch (side) {
    case Side::Left:
      return {-1.0, 0.0};
    case Side::Right:
      return {1.0, 0.0};
    case Side::Top:
      return {0.0, 1.0};
    case Side::Bottom:
      break;
  }
  return {0.0, -1.0};
}

glm::dvec2 NormalOfNearestEdge(const DieOutline& die, const glm::dvec2& point) {
  const glm::dvec2 at = Turned(point - die.Centre, -die.Degrees);
  const double halfWidth = std::fabs(die.Width) / 2.0;
  const double halfLength = std::fabs(die.Length) / 2.0;
  // How far the point lies beyond an edge's ends counts too: an edge is not an endless line.
  const double besideX = std::max(std::fabs(at.x) - halfWidth, 0.0);
  const double besideY = std::max(std::fabs(at.y) - halfLength, 0.0);
  glm::dvec2 nearest{};
  double least = std::numeric_limits<double>::infinity();
  for (const Side side : {Side::Left, Side::Right, Side::Top, Side::Bottom}) {
    const glm::dvec2 normal = NormalOf(side);
    const double across = glm::dot(normal, at) - (model::IsUpright(side) ? halfWidth : halfLength);
    const double distance = std::hypot(across, model::IsUpright(side) ? besideY : besideX);
    if (distance >= least) continue;
    least = distance;
    nearest = normal;
  }
  return Turned(nearest, die.Degrees);
}

double AngleBetween(const glm::dvec2& a, const glm::dvec2& b) {
  return glm::degrees(std::atan2(std::fabs(a.x * b.y - a.y * b.x), glm::dot(a, b)));
}

}  // namespace analysis
