#include "import/crossings.h"

#include <algorithm>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <numeric>

namespace importer {

namespace {

constexpr double kNear = 1e-5;

double Cross(const glm::dvec2& a, const glm::dvec2& b) { return a.x * b.y - a.y * b.x; }

double ToPoint(const PlanWire& wire, const glm::dvec2& point) {
  const glm::dvec2 along = wire.End - wire.Start;
  const double square = glm::dot(along, along);
  const double part =
      square == 0.0 ? 0.0 : glm::clamp(glm::dot(point - wire.Start, along) / square, 0.0, 1.0);
  return glm::length(wire.Start + along * part - point);
}

/// True when the ends of each wire lie on different sides of the other one.
bool Pierce(const PlanWire& a, const PlanWire& b) {
  const auto sides = [](const PlanWire& line, const PlanWire& ends) {
    const glm::dvec2 along = line.End - line.Start;
    return std::pair(Cross(along, ends.Start - line.Start) > 0.0, Cross(along, ends.End - line.Start) > 0.0);
  };
  const auto [a1, a2] = sides(a, b);
  const auto [b1, b2] = sides(b, a);
  return a1 != a2 && b1 != b2;
}

bool Meet(const PlanWire& a, const PlanWire& b) {
  if (a.Start == b.Start || a.Start == b.End || a.End == b.Start || a.End == b.End) return false;
  return Pierce(a, b) ||
         std::min({ToPoint(a, b.Start), ToPoint(a, b.End), ToPoint(b, a.Start), ToPoint(b, a.End)}) <= kNear;
}

}  // namespace

std::vector<std::pair<std::size_t, std::size_t>> Crossings(const std::vector<PlanWire>& wires) {
  const auto left = [&](std::size_t i) { return std::min(wires[i].Start.x, wires[i].End.x); };
  const auto right = [&](std::size_t i) { return std::max(wires[i].Start.x, wires[i].End.x); };
  std::vector<std::size_t> byLeft(wires.size());
  std::iota(byLeft.begin(), byLeft.end(), std::size_t{0});
  std::sort(byLeft.begin(), byLeft.end(),
            [&](std::size_t i, std::size_t j) { return std::pair(left(i), i) < std::pair(left(j), j); });
  std::vector<std::pair<std::size_t, std::size_t>> crossings;
  for (std::size_t k = 0; k < byLeft.size(); ++k) {
    const std::size_t i = byLeft[k];
    for (std::size_t l = k + 1; l < byLeft.size() && left(byLeft[l]) <= right(i) + kNear; ++l)
      if (Meet(wires[i], wires[byLeft[l]])) crossings.push_back(std::minmax(i, byLeft[l]));
  }
  std::sort(crossings.begin(), crossings.end());
  return crossings;
}

}  // namespace importer
