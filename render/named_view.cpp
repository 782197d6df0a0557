#include "render/named_view.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

namespace render {

namespace {

constexpr double kMargin = 1.05;

struct Direction {
  glm::dvec3 Out;  ///< towards the eye
  glm::dvec3 Up;
};

// Pads and wires put the package's positive y at the scene's negative z.
Direction DirectionOf(NamedView view) {
  const glm::dvec3 away{0.0, 0.0, -1.0};
  const glm::dvec3 up{0.0, 1.0, 0.0};
  const double third = 1.0 / std::sqrt(3.0);
  switch (view) {
    case NamedView::Top:
      return {{0.0, 1.0, 0.0}, away};
    case NamedView::Bottom:
      return {{0.0, -1.0, 0.0}, away};
    case NamedView::Front:
      return {{0.0, 0.0, 1.0}, up};
    case NamedView::Back:
      return {{0.0, 0.0, -1.0}, up};
    case NamedView::Left:
      return {{-1.0, 0.0, 0.0}, up};
    case NamedView::Right:
      return {{1.0, 0.0, 0.0}, up};
    case NamedView::Iso:
      break;
  }
  return {{third, third, third}, up};
}

/// The points as a view sees them: x to the picture's right, y to its top, z out of it to the eye.
struct ViewAxes {
  glm::dvec3 Right, Up, Out;

  explicit ViewAxes(NamedView view) : Out(DirectionOf(view).Out) {
    const glm::dvec3 right = glm::cross(DirectionOf(view).Up, Out);
    Right = right / glm::length(right);
    Up = glm::cross(Out, Right);
  }

  glm::dvec3 Seen(const model::SceneVector& point) const {
    const glm::dvec3 at{double(point.X), double(point.Y), double(point.Z)};
    return {glm::dot(at, Right), glm::dot(at, Up), glm::dot(at, Out)};
  }

  glm::dvec3 InScene(double x, double y, double z) const { return x * Right + y * Up + z * Out; }
};

/// One direction across the picture, 0 for x and 1 for y.
///
/// An eye at e across and d out sees the point (a, z) when |a - e| <= slope * (d - z): both edges of the
/// visible wedge are held off by the point that reaches farthest in slope * z + a and in slope * z - a.
double DistanceFor(const std::vector<glm::dvec3>& points, int across, double slope) {
  double high = slope * points.front()[2] + points.front()[across];
  double low = slope * points.front()[2] - points.front()[across];
  for (const glm::dvec3& point : points) {
    high = std::max(high, slope * point[2] + point[across]);
    low = std::max(low, slope * point[2] - point[across]);
  }
  return (high + low) / (2.0 * slope);
}

/// The place at which an eye at this distance has equal room on both sides.
double MiddleFor(const std::vector<glm::dvec3>& points, int across, double distance) {
  double middle = points.front()[across];
  // The outermost points change with the eye; they settle within a few passes.
  for (int pass = 0; pass < 8; ++pass) {
    const auto bySlope = [&](const glm::dvec3& a, const glm::dvec3& b) {
      return (a[across] - middle) * (distance - b[2]) < (b[across] - middle) * (distance - a[2]);
    };
    const auto [low, high] = std::minmax_element(points.begin(), points.end(), bySlope);
    const double toLow = distance - (*low)[2];
    const double toHigh = distance - (*high)[2];
    middle = ((*low)[across] * toHigh + (*high)[across] * toLow) / (toLow + toHigh);
  }
  return middle;
}

}  // namespace

Eye FitPen::Fit(NamedView view, const PixelSize& size) const {
  const ViewAxes axes(view);
  std::vector<glm::dvec3> points;
  points.reserve(points_.size() + 1);
  for (const model::SceneVector& point : points_) points.push_back(axes.Seen(point));
  if (points.empty()) points.push_back({});

  const double upSlope = std::tan(glm::radians(kFieldOfView / 2.0)) / kMargin;
  const double rightSlope = upSlope * double(size.Width) / double(std::max(size.Height, 1));
  const auto [farthest, nearest] = std::minmax_element(
      points.begin(), points.end(), [](const glm::dvec3& a, const glm::dvec3& b) { return a[2] < b[2]; });
  // A view in which all points coincide still needs some distance.
  const double least = (*nearest)[2] + 1e-3 * (1.0 + (*nearest)[2] - (*farthest)[2]);
  const double distance =
      std::max({DistanceFor(points, 0, rightSlope), DistanceFor(points, 1, upSlope), least});
  const double x = MiddleFor(points, 0, distance);
  const double y = MiddleFor(points, 1, distance);
  return {.Position = axes.InScene(x, y, distance),
          .Target = axes.InScene(x, y, (*farthest)[2]),
          .Up = axes.Up,
          .Near = (distance - (*nearest)[2]) * 0.9,
          .Far = (distance - (*farthest)[2]) * 1.1};
}

}  // namespace render
