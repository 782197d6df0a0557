/// Finds the wire loops that come near each other.
#pragma once

#include <array>
#include <cstdint>
#include <glm/vec3.hpp>
#include <vector>

#include "model/wire_path.h"

namespace analysis {

/// A loop as the search sees it. Nets and pads are numbers, the same ones for the same names.
struct LoopOfNet {
  std::array<glm::dvec3, model::kWirePointCount> Points{};
  std::uint32_t Net = 0;
  std::array<std::uint32_t, 2> Pads{};  ///< a wire has one pad, twice
};

/// Two loops and the smallest distance of their centre lines.
struct LoopPair {
  std::uint32_t First = 0, Second = 0;  ///< First < Second
  double Distance = 0.0;
  glm::dvec3 Where{};  ///< halfway between the two nearest points
};

/// Loops of one net are not compared, nor loops with an end point in common or at the same pad.
bool AreCompared(const LoopOfNet& a, const LoopOfNet& b);

/// For every loop the nearest other one, and every other pair as near as `reach` (none when that is
/// negative), in order of distance.
/// Units   any one unit of length for points and `reach`
std::vector<LoopPair> FindNearLoops(const std::vector<LoopOfNet>& loops, double reach);

}  // namespace analysis
