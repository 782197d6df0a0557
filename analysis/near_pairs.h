/// Finds the pairs of boxes that come near each other without comparing all with all.
#pragma once

#include <cstddef>
#include <functional>
#include <glm/vec2.hpp>
#include <vector>

namespace analysis {

struct PlanBox {
  glm::dvec2 Low{}, High{};
};

/// Calls `visit` once, with the smaller number first, for every pair of boxes that come as near as `reach`
/// along both axes.
void ForEachNearPair(const std::vector<PlanBox>& boxes, double reach,
                     const std::function<void(std::size_t, std::size_t)>& visit);

}  // namespace analysis
