/// The shape of a bond wire: seven points that the drawing, the setup picture and every measurement share.
#pragma once

#include <array>
#include <optional>

#include "model/package.h"
#include "model/side.h"

namespace model {

/// A point in package coordinates: x and y in the package plane, z the height.
struct PackagePoint {
  float X = 0.0F, Y = 0.0F, Z = 0.0F;
};

/// The ends of a bond's wire: at its die pad, and at its substrate pad.
inline PackagePoint WireStart(const BondRec& bond) {
  return {bond.WireStartX, bond.WireStartY, bond.WireStartZ};
}
inline PackagePoint WireEnd(const BondRec& bond) { return {bond.WireEndX, bond.WireEndY, bond.WireEndZ}; }

inline constexpr int kWirePointCount = 7;
using WirePath = std::array<PackagePoint, kWirePointCount>;

/// The distance between two points seen from above.
double PlanLength(const PackagePoint& start, const PackagePoint& end);

/// The loop from `start` (at a die pad) to `end`: straight up to 40 % of the loop height, bent
/// outwards over 5 % and 10 % of the extension, level from 30 % to all of it, then straight down.
/// Units   all in scene units; `loopHeight` counts from the start's height
/// Faults  DivisionByZero when start and end coincide in plan; Overflow
WirePath SevenPoints(const PackagePoint& start, const PackagePoint& end, float loopHeight, float extension);

/// The base die seen from above.
struct DiePlan {
  float Width = 0.0F;   ///< along x
  float Length = 0.0F;  ///< along y
};

/// Plan distance from a stacked-die pad, along the line to its substrate pad, to the base die's edge on the
/// pad's side.
/// Returns `previous` for a pad on no side
/// Faults  DivisionByZero when the line runs along the edge; Overflow
float EdgeDistance(std::optional<Side> side, const PackagePoint& start, float subX, float subY,
                   const DiePlan& baseDie, float previous);

}  // namespace model
