#include "analysis/segment_distance.h"

#include <algorithm>
#include <cmath>

namespace analysis {

namespace {

Point3 Minus(const Point3& a, const Point3& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

double Dot(const Point3& a, const Point3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Point3 Cross(const Point3& a, const Point3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Point3 At(const Segment& segment, const Point3& along, double part) {
  return {segment.A[0] + part * along[0], segment.A[1] + part * along[1], segment.A[2] + part * along[2]};
}

/// How far along a segment the point nearest to `point` lies, 0 to 1.
double PartNearestTo(const Point3& point, const Segment& segment, const Point3& along, double squaredLength) {
  if (squaredLength == 0.0) return 0.0;
  return std::clamp(Dot(Minus(point, segment.A), along) / squaredLength, 0.0, 1.0);
}

struct Best {
  double Squared;
  Point3 OnFirst, OnSecond;

  void Take(const Point3& onFirst, const Point3& onSecond) {
    const Point3 apart = Minus(onFirst, onSecond);
    const double squared = Dot(apart, apart);
    if (squared < Squared) *this = {squared, onFirst, onSecond};
  }
};

}  // namespace

Nearness NearestPoints(const Segment& first, const Segment& second) {
  const Point3 u = Minus(first.B, first.A);
  const Point3 v = Minus(second.B, second.A);
  const double uu = Dot(u, u);
  const double vv = Dot(v, v);
  Best best{HUGE_VAL, first.A, second.A};
  // The smallest distance is at an end of one of them, or between the insides. Every candidate lies on both
  // segments, so that rounding can only miss the minimum, never go below it.
  best.Take(first.A, At(second, v, PartNearestTo(first.A, second, v, vv)));
  best.Take(first.B, At(second, v, PartNearestTo(first.B, second, v, vv)));
  best.Take(At(first, u, PartNearestTo(second.A, first, u, uu)), second.A);
  best.Take(At(first, u, PartNearestTo(second.B, first, u, uu)), second.B);
  // The lines' common perpendicular. The cross product itself stays exact for lines that are nearly parallel,
  // where uu * vv - (u * v)^2 would cancel out.
  const Point3 normal = Cross(u, v);
  const double squaredNormal = Dot(normal, normal);
  if (squaredNormal > 0.0) {
    const double part = Dot(Cross(Minus(second.A, first.A), v), normal) / squaredNormal;
    if (part > 0.0 && part < 1.0) {
      const Point3 onFirst = At(first, u, part);
      best.Take(onFirst, At(second, v, PartNearestTo(onFirst, second, v, vv)));
    }
  }
  return {std::sqrt(best.Squared), best.OnFirst, best.OnSecond};
}

}  // namespace analysis
