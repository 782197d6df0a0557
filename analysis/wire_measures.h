/// What can be measured on a bond wire: lengths and directions.
#pragma once

#include <optional>
#include <string_view>

#include "model/wire_path.h"

namespace analysis {

/// A point or direction in the package plane, y up.
struct PlanVector {
  double X = 0.0, Y = 0.0;
};

/// A rectangle seen from above, turned counter-clockwise about its centre.
struct DieOutline {
  PlanVector Centre;
  double Width = 0.0;   ///< along x before the turn
  double Length = 0.0;  ///< along y before the turn
  double Degrees = 0.0;
};

/// The length of the loop in space, from point to point.
double LoopLength(const model::WirePath& path);

/// The height of the loop's highest point.
double TopOf(const model::WirePath& path);

/// The outward normal of a die's side by its letter (of any case); nothing for any other text.
std::optional<PlanVector> NormalOf(std::string_view side);

/// The outward normal of the edge nearest to a point inside or outside.
PlanVector NormalOfNearestEdge(const DieOutline& die, const PlanVector& point);

/// The angle between two directions of any length.
/// Units   degrees, 0 to 180
double AngleBetween(const PlanVector& a, const PlanVector& b);

}  // namespace analysis
