/// The edges of a die seen from above, and the directions across them.
#pragma once

#include <glm/vec2.hpp>

#include "model/package.h"
#include "model/side.h"

namespace analysis {

/// A rectangle seen from above, turned counter-clockwise about its centre.
struct DieOutline {
  glm::dvec2 Centre{};
  double Width = 0.0;   ///< along x before the turn
  double Length = 0.0;  ///< along y before the turn
  double Degrees = 0.0;
};

/// False for a die without a width or length, which shows nothing.
inline bool IsDrawn(const DieOutline& die) { return die.Width != 0.0 && die.Length != 0.0; }

// Units   file units, package axes
DieOutline BaseDieOf(const model::Package& package);
DieOutline StackedDieOf(const model::Package& package);

/// The outward normal of a die's side.
glm::dvec2 NormalOf(model::Side side);

/// The outward normal of the edge nearest to a point inside or outside.
glm::dvec2 NormalOfNearestEdge(const DieOutline& die, const glm::dvec2& point);

/// The angle between two directions of any length.
/// Units   degrees, 0 to 180
double AngleBetween(const glm::dvec2& a, const glm::dvec2& b);

}  // namespace analysis
