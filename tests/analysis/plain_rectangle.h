/// Distances between rectangles found by stepping, to compare with those by formula.
#pragma once

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace analysis {

struct Rectangle {
  double X, Y, Angle, Length, Width;  ///< the length runs along the angle
};

inline std::vector<std::pair<double, double>> CornersOf(const Rectangle& r) {
  std::vector<std::pair<double, double>> corners;
  for (const auto& [u, v] : {std::pair(-1, -1), std::pair(1, -1), std::pair(1, 1), std::pair(-1, 1)}) {
    const double a = u * r.Length / 2, b = v * r.Width / 2;
    corners.push_back({r.X + a * std::cos(r.Angle) - b * std::sin(r.Angle),
                       r.Y + a * std::sin(r.Angle) + b * std::cos(r.Angle)});
  }
  return corners;
}

/// A point in the rectangle's own axes: along and across, from its middle.
inline std::pair<double, double> Inside(const Rectangle& r, double x, double y) {
  const double dx = x - r.X, dy = y - r.Y;
  return {dx * std::cos(r.Angle) + dy * std::sin(r.Angle), -dx * std::sin(r.Angle) + dy * std::cos(r.Angle)};
}

/// The distance to the other rectangle, by steps along all edges of one, refined around the nearest step.
inline double GapBetween(const Rectangle& a, const Rectangle& b, double enough) {
  // Circles around both are farther apart: a more exact distance does not matter.
  const double apart = std::hypot(a.X - b.X, a.Y - b.Y) - std::hypot(a.Length, a.Width) / 2 -
                       std::hypot(b.Length, b.Width) / 2;
  if (apart > enough) return apart;
  const auto fromPoint = [](const Rectangle& r, double x, double y) {
    const auto [u, v] = Inside(r, x, y);
    return std::hypot(std::max(std::fabs(u) - r.Length / 2, 0.0), std::max(std::fabs(v) - r.Width / 2, 0.0));
  };
  double least = HUGE_VAL;
  for (const auto& [one, two] : {std::pair(a, b), std::pair(b, a)}) {
    const auto corners = CornersOf(one);
    for (std::size_t k = 0; k < 4; ++k) {
      // The distance to a convex shape falls and then rises along a line: narrow down its minimum.
      double low = 0.0, high = 1.0;
      const auto at = [&](double t) {
        const auto& p = corners[k];
        const auto& q = corners[(k + 1) % 4];
        return fromPoint(two, p.first + t * (q.first - p.first), p.second + t * (q.second - p.second));
      };
      for (int step = 0; step < 100; ++step) {
        const double t = low + (high - low) / 3, u = high - (high - low) / 3;
        (at(t) <= at(u) ? high : low) = at(t) <= at(u) ? u : t;
      }
      least = std::min({least, at((low + high) / 2), at(0.0), at(1.0)});
    }
    if (fromPoint(two, one.X, one.Y) == 0.0) least = 0.0;
  }
  return least < 1e-9 ? 0.0 : least;
}

}  // namespace analysis
