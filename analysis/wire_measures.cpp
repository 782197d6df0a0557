#include "analysis/wire_measures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "model/text.h"

namespace analysis {

namespace {

PlanVector Turned(const PlanVector& point, double degrees) {
  const double angle = degrees * std::numbers::pi / 180.0;
  return {point.X * std::cos(angle) - point.Y * std::sin(angle),
          point.X * std::sin(angle) + point.Y * std::cos(angle)};
}

}  // namespace

double LoopLength(const model::WirePath& path) {
  double length = 0.0;
  for (std::size_t i = 1; i < path.size(); ++i)
    length += std::hypot(PlanLength(path[i - 1], path[i]), double(path[i].Z) - double(path[i - 1].Z));
  return length;
}

double TopOf(const model::WirePath& path) {
  const auto lower = [](const model::PackagePoint& a, const model::PackagePoint& b) { return a.Z < b.Z; };
  return double(std::max_element(path.begin(), path.end(), lower)->Z);
}

std::optional<PlanVector> NormalOf(std::string_view side) {
  if (model::EqualsUpper(side, "L")) return PlanVector{-1.0, 0.0};
  if (model::EqualsUpper(side, "R")) return PlanVector{1.0, 0.0};
  if (model::EqualsUpper(side, "T")) return PlanVector{0.0, 1.0};
  if (model::EqualsUpper(side, "B")) return PlanVector{0.0, -1.0};
  return std::nullopt;
}

PlanVector NormalOfNearestEdge(const DieOutline& die, const PlanVector& point) {
  const PlanVector at = Turned({point.X - die.Centre.X, point.Y - die.Centre.Y}, -die.Degrees);
  const double halfWidth = std::fabs(die.Width) / 2.0;
  const double halfLength = std::fabs(die.Length) / 2.0;
  // How far the point lies beyond an edge's ends counts too: an edge is no endless line.
  const double besideX = std::max(std::fabs(at.X) - halfWidth, 0.0);
  const double besideY = std::max(std::fabs(at.Y) - halfLength, 0.0);
  PlanVector nearest;
  double least = std::numeric_limits<double>::infinity();
  for (const char* side : {"L", "R", "T", "B"}) {
    const PlanVector normal = *NormalOf(side);
    const double across = normal.X != 0.0 ? normal.X * at.X - halfWidth : normal.Y * at.Y - halfLength;
    const double distance = std::hypot(across, normal.X != 0.0 ? besideY : besideX);
    if (distance >= least) continue;
    least = distance;
    nearest = normal;
  }
  return Turned(nearest, die.Degrees);
}

double AngleBetween(const PlanVector& a, const PlanVector& b) {
  return std::atan2(std::fabs(a.X * b.Y - a.Y * b.X), a.X * b.X + a.Y * b.Y) * 180.0 / std::numbers::pi;
}

}  // namespace analysis
