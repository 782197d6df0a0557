#include "render/named_view.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace render {

namespace {

constexpr double kMargin = 1.05;

struct Direction {
  ScenePoint Out;  ///< towards the eye
  ScenePoint Up;
};

// Pads and wires put the package's positive y at the scene's negative z.
Direction DirectionOf(NamedView view) {
  constexpr ScenePoint kAway{0.0, 0.0, -1.0};
  constexpr ScenePoint kUp{0.0, 1.0, 0.0};
  const double third = 1.0 / std::sqrt(3.0);
  switch (view) {
    case NamedView::Top:
      return {{0.0, 1.0, 0.0}, kAway};
    case NamedView::Bottom:
      return {{0.0, -1.0, 0.0}, kAway};
    case NamedView::Front:
      return {{0.0, 0.0, 1.0}, kUp};
    case NamedView::Back:
      return {{0.0, 0.0, -1.0}, kUp};
    case NamedView::Left:
      return {{-1.0, 0.0, 0.0}, kUp};
    case NamedView::Right:
      return {{1.0, 0.0, 0.0}, kUp};
    case NamedView::Iso:
      break;
  }
  return {{third, third, third}, kUp};
}

double Dot(const ScenePoint& a, const ScenePoint& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

ScenePoint Cross(const ScenePoint& a, const ScenePoint& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

ScenePoint Unit(const ScenePoint& a) {
  const double length = std::sqrt(Dot(a, a));
  return {a[0] / length, a[1] / length, a[2] / length};
}

/// The points as a view sees them: x to the picture's right, y to its top, z out of it to the eye.
struct ViewAxes {
  ScenePoint Right, Up, Out;

  explicit ViewAxes(NamedView view) : Out(DirectionOf(view).Out) {
    Right = Unit(Cross(DirectionOf(view).Up, Out));
    Up = Cross(Out, Right);
  }

  ScenePoint Seen(const model::SceneVector& point) const {
    const ScenePoint at{double(point.X), double(point.Y), double(point.Z)};
    return {Dot(at, Right), Dot(at, Up), Dot(at, Out)};
  }

  ScenePoint InScene(double x, double y, double z) const {
    ScenePoint at{};
    for (std::size_t axis = 0; axis < at.size(); ++axis)
      at[axis] = x * Right[axis] + y * Up[axis] + z * Out[axis];
    return at;
  }
};

/// One direction across the picture, 0 for x and 1 for y.
///
/// An eye at e across and d out sees the point (a, z) when |a - e| <= slope * (d - z): both edges of the
/// visible wedge are held off by the point that reaches farthest in slope * z + a and in slope * z - a.
double DistanceFor(const std::vector<ScenePoint>& points, std::size_t across, double slope) {
  double high = slope * points.front()[2] + points.front()[across];
  double low = slope * points.front()[2] - points.front()[across];
  for (const ScenePoint& point : points) {
    high = std::max(high, slope * point[2] + point[across]);
    low = std::max(low, slope * point[2] - point[across]);
  }
  return (high + low) / (2.0 * slope);
}

/// Where an eye at this distance has as much room on one side as on the other.
double MiddleFor(const std::vector<ScenePoint>& points, std::size_t across, double distance) {
  double middle = points.front()[across];
  // The outermost points change with the eye; they have long settled after a few rounds.
  for (int round = 0; round < 8; ++round) {
    const auto bySlope = [&](const ScenePoint& a, const ScenePoint& b) {
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

Eye FitPen::Fit(NamedView view, const gl::PixelSize& size) const {
  const ViewAxes axes(view);
  std::vector<ScenePoint> points;
  points.reserve(points_.size() + 1);
  for (const model::SceneVector& point : points_) points.push_back(axes.Seen(point));
  if (points.empty()) points.push_back({});

  const double pi = std::acos(-1.0);
  const double upSlope = std::tan(kFieldOfView / 2.0 * pi / 180.0) / kMargin;
  const double rightSlope = upSlope * double(size.Width) / double(std::max(size.Height, 1));
  const auto [farthest, nearest] = std::minmax_element(
      points.begin(), points.end(), [](const ScenePoint& a, const ScenePoint& b) { return a[2] < b[2]; });
  // What is seen as a point still needs some distance.
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
