#include "render/tube.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <glm/geometric.hpp>
#include <glm/vec3.hpp>
#include <numbers>
#include <vector>

#include "model/arithmetic.h"

namespace render {

namespace {

constexpr std::size_t kSides = kTubeSides;
using Ring = std::array<glm::dvec3, kSides>;

std::vector<glm::dvec3> DifferentPoints(const model::WireStrip& strip) {
  std::vector<glm::dvec3> points;
  for (const model::SceneVector& p : strip) {
    const glm::dvec3 point{double(p.X), double(p.Y), double(p.Z)};
    if (points.empty() || glm::length(point - points.back()) > 0.0) points.push_back(point);
  }
  return points;
}

/// Vectors from the wire's line to the tube's edges, perpendicular to a direction.
Ring FirstSpokes(const glm::dvec3& direction, double radius) {
  const glm::dvec3 away =
      std::fabs(direction.y) < 0.9 ? glm::dvec3{0.0, 1.0, 0.0} : glm::dvec3{1.0, 0.0, 0.0};
  const glm::dvec3 u = glm::normalize(glm::cross(away, direction));
  const glm::dvec3 v = glm::cross(direction, u);
  const double step = 2.0 * std::numbers::pi / double(kSides);
  Ring spokes{};
  for (std::size_t k = 0; k < kSides; ++k)
    spokes[k] = (radius * std::cos(step * double(k))) * u + (radius * std::sin(step * double(k))) * v;
  return spokes;
}

/// Rotates a vector by the smallest rotation that takes one direction to another.
glm::dvec3 Turned(const glm::dvec3& v, const glm::dvec3& from, const glm::dvec3& to,
                  const glm::dvec3& anyAcross) {
  const glm::dvec3 axis = glm::cross(from, to);
  const double squared = glm::dot(axis, axis);
  const double cosine = glm::dot(from, to);
  if (squared > 1e-24)
    return v + glm::cross(axis, v) + ((1.0 - cosine) / squared) * glm::cross(axis, glm::cross(axis, v));
  return cosine > 0.0 ? v : (2.0 * glm::dot(anyAcross, v)) * anyAcross - v;
}

/// The ring where a tube bends: the edges of both halves meet in the plane halfway between them. Rotates
/// `spokes` until they are perpendicular to the new direction.
Ring Mitre(const glm::dvec3& from, const glm::dvec3& to, Ring& spokes) {
  // At a sharp bend the edges would meet in a long spike; the tube is cut off square there.
  constexpr double kSharpest = 0.5;
  const glm::dvec3 middle = from + to;
  const bool square = glm::length(middle) < kSharpest;
  const glm::dvec3 anyAcross = glm::normalize(spokes[0]);
  Ring ring{};
  for (std::size_t k = 0; k < kSides; ++k) {
    ring[k] = square ? spokes[k] : spokes[k] - (glm::dot(spokes[k], middle) / glm::dot(from, middle)) * from;
    spokes[k] = Turned(spokes[k], from, to, anyAcross);
  }
  return ring;
}

std::vector<Ring> RingsAlong(const std::vector<glm::dvec3>& points, double radius) {
  std::vector<Ring> rings;
  glm::dvec3 direction = glm::normalize(points[1] - points[0]);
  Ring spokes = FirstSpokes(direction, radius);
  rings.push_back(spokes);
  for (std::size_t k = 1; k + 1 < points.size(); ++k) {
    const glm::dvec3 next = glm::normalize(points[k + 1] - points[k]);
    rings.push_back(Mitre(direction, next, spokes));
    direction = next;
  }
  rings.push_back(spokes);
  return rings;
}

void AddRing(const glm::dvec3& centre, const Ring& ring, Mesh& mesh) {
  for (const glm::dvec3& spoke : ring) {
    const glm::dvec3 point = centre + spoke;
    mesh.Points.push_back({model::Single(point.x), model::Single(point.y), model::Single(point.z)});
  }
}

}  // namespace

void AddTube(const model::WireStrip& strip, double radius, Mesh& mesh) {
  constexpr std::uint32_t kRound = kTubeSides;
  const std::vector<glm::dvec3> points = DifferentPoints(strip);
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
