#include "render/tube.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/arithmetic.h"

namespace render {

namespace {

struct Vector {
  double x, y, z;
};

Vector operator+(const Vector& a, const Vector& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vector operator-(const Vector& a, const Vector& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vector operator*(double f, const Vector& a) { return {f * a.x, f * a.y, f * a.z}; }
double Dot(const Vector& a, const Vector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vector Cross(const Vector& a, const Vector& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
double Length(const Vector& a) { return std::sqrt(Dot(a, a)); }
Vector Unit(const Vector& a) { return (1.0 / Length(a)) * a; }

constexpr std::size_t kSides = kTubeSides;
using Ring = std::array<Vector, kSides>;

std::vector<Vector> DifferentPoints(const model::WireStrip& strip) {
  std::vector<Vector> points;
  for (const model::SceneVector& p : strip) {
    const Vector point{double(p.X), double(p.Y), double(p.Z)};
    if (points.empty() || Length(point - points.back()) > 0.0) points.push_back(point);
  }
  return points;
}

/// From the line to the tube's edges, across a direction.
Ring FirstSpokes(const Vector& direction, double radius) {
  const Vector away = std::fabs(direction.y) < 0.9 ? Vector{0.0, 1.0, 0.0} : Vector{1.0, 0.0, 0.0};
  const Vector u = Unit(Cross(away, direction));
  const Vector v = Cross(direction, u);
  const double step = 2.0 * std::acos(-1.0) / double(kSides);
  Ring spokes{};
  for (std::size_t k = 0; k < kSides; ++k)
    spokes[k] = (radius * std::cos(step * double(k))) * u + (radius * std::sin(step * double(k))) * v;
  return spokes;
}

/// Turns a vector as one direction turns into another, the short way round.
Vector Turned(const Vector& v, const Vector& from, const Vector& to, const Vector& anyAcross) {
  const Vector axis = Cross(from, to);
  const double squared = Dot(axis, axis);
  const double cosine = Dot(from, to);
  if (squared > 1e-24) return v + Cross(axis, v) + ((1.0 - cosine) / squared) * Cross(axis, Cross(axis, v));
  return cosine > 0.0 ? v : (2.0 * Dot(anyAcross, v)) * anyAcross - v;
}

/// The ring where a tube bends: the edges of both halves meet in the plane halfway between them. Turns
/// `spokes` across the new direction.
Ring Mitre(const Vector& from, const Vector& to, Ring& spokes) {
  // A wire that turns back sharply would stand out in a long spike; its tube is cut off square there.
  constexpr double kSharpest = 0.5;
  const Vector middle = from + to;
  const bool square = Length(middle) < kSharpest;
  const Vector anyAcross = Unit(spokes[0]);
  Ring ring{};
  for (std::size_t k = 0; k < kSides; ++k) {
    ring[k] = square ? spokes[k] : spokes[k] - (Dot(spokes[k], middle) / Dot(from, middle)) * from;
    spokes[k] = Turned(spokes[k], from, to, anyAcross);
  }
  return ring;
}

std::vector<Ring> RingsAlong(const std::vector<Vector>& points, double radius) {
  std::vector<Ring> rings;
  Vector direction = Unit(points[1] - points[0]);
  Ring spokes = FirstSpokes(direction, radius);
  rings.push_back(spokes);
  for (std::size_t k = 1; k + 1 < points.size(); ++k) {
    const Vector next = Unit(points[k + 1] - points[k]);
    rings.push_back(Mitre(direction, next, spokes));
    direction = next;
  }
  rings.push_back(spokes);
  return rings;
}

void AddRing(const Vector& centre, const Ring& ring, Mesh& mesh) {
  for (const Vector& spoke : ring) {
    const Vector point = centre + spoke;
    mesh.Points.push_back({model::Single(point.x), model::Single(point.y), model::Single(point.z)});
  }
}

}  // namespace

void AddTube(const model::WireStrip& strip, double radius, Mesh& mesh) {
  constexpr std::uint32_t kRound = kTubeSides;
  const std::vector<Vector> points = DifferentPoints(strip);
  if (points.size() < 2) return;
  const std::vector<Ring> rings = RingsAlong(points, radius);
  const auto first = static_cast<std::uint32_t>(mesh.Points.size());
  for (std::size_t k = 0; k < points.size(); ++k) AddRing(points[k], rings[k], mesh);

  const auto last = first + static_cast<std::uint32_t>(points.size() - 1) * kRound;
  for (std::uint32_t ring = first; ring < last; ring += kRound) {
    for (std::uint32_t side = 0; side < kRound; ++side) {
      const std::uint32_t next = (side + 1) % kRound;
      mesh.Triangles.push_back({ring + side, ring + next, ring + kRound + next});
      mesh.Triangles.push_back({ring + side, ring + kRound + next, ring + kRound + side});
    }
  }
  for (std::uint32_t side = 1; side + 1 < kRound; ++side) {
    mesh.Triangles.push_back({first, first + side + 1, first + side});
    mesh.Triangles.push_back({last, last + side, last + side + 1});
  }
}

}  // namespace render
