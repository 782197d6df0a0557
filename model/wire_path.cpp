#include "model/wire_path.h"

#include <cmath>

#include "model/arithmetic.h"

namespace model {

namespace {

/// Length in plan: squares and sum in double precision, the root a single.
float SingleLength(float dx, float dy) {
  return Single(std::sqrt(double(dx) * double(dx) + double(dy) * double(dy)));
}

}  // namespace

double PlanLength(const PackagePoint& start, const PackagePoint& end) {
  return std::hypot(double(end.X) - double(start.X), double(end.Y) - double(start.Y));
}

WirePath SevenPoints(const PackagePoint& start, const PackagePoint& end, float loopHeight, float extension) {
  const float dx = Single(double(end.X) - double(start.X));
  const float dy = Single(double(end.Y) - double(start.Y));
  const float length = SingleLength(dx, dy);
  const float ux = Single(Divide(double(dx), double(length), "its ends coincide"));
  const float uy = Single(Divide(double(dy), double(length), "its ends coincide"));

  const double h = double(loopHeight);
  const double e = double(extension);
  const auto along = [&](double out, double up) {
    return PackagePoint{Single(double(start.X) + out * double(ux)),
                        Single(double(start.Y) + out * double(uy)), Single(double(start.Z) + up)};
  };
  return {start,
          along(0.0, 0.4 * h),
          along(e / 2.0 * 0.1, 0.6 * h),
          along(e / 2.0 * 0.2, 0.8 * h),
          along(e * 0.3, h),
          along(e, h),
          end};
}

float EdgeDistance(std::optional<Side> side, const PackagePoint& start, float subX, float subY,
                   const DiePlan& baseDie, float previous) {
  const float a = Single(double(start.X) - double(subX));
  const float b = Single(double(start.Y) - double(subY));
  const double length = double(SingleLength(a, b));
  const double halfWidth = double(baseDie.Width) / 2.0;
  const double halfLength = double(baseDie.Length) / 2.0;
  const auto distance = [&](double toEdge, float run) {
    return Single(std::fabs(length * Divide(toEdge, double(run), "it runs along the base die's edge")));
  };
  // Deliberate: a pad on no edge takes the distance of the wire before it.
  if (!side) return previous;
  switch (*side) {
    case Side::Top:
      return distance(double(start.Y) - halfLength, b);
    case Side::Bottom:
      return distance(halfLength + double(start.Y), b);
    case Side::Left:
      return distance(halfWidth + double(start.X), a);
    case Side::Right:
      break;
  }
  return distance(double(start.X) - halfWidth, a);
}

}  // namespace model
