/// Wires that cross, seen from above.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <utility>
#include <vector>

namespace importer {

/// A wire from above, in millimetres.
struct PlanWire {
  glm::dvec2 Start{0.0}, End{0.0};
};

/// The pairs of wires that come within 0.01 um of each other, by their numbers. Wires with an end in common
/// do not cross.
std::vector<std::pair<std::size_t, std::size_t>> Crossings(const std::vector<PlanWire>& wires);

}  // namespace importer
