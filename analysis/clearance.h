/// How close the wires of a package come to each other.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/segment_distance.h"
#include "model/wire_path.h"

namespace analysis {

/// A loop among others. Nets and pads are numbers, the same ones for the same names.
struct LoopOfNet {
  std::array<analysis::Point3, model::kWirePointCount> Points{};
  std::uint32_t Net = 0;
  std::array<std::uint32_t, 2> Pads{};  ///< a wire has one pad, twice
};

/// Two loops and the smallest distance of their centre lines.
struct LoopPair {
  std::uint32_t First = 0, Second = 0;  ///< First < Second
  double Distance = 0.0;
  analysis::Point3 Where{};  ///< halfway between the two nearest points
};

/// Loops of one net are not compared, nor loops with an end point in common or at the same pad.
bool AreCompared(const LoopOfNet& a, const LoopOfNet& b);

struct LoopPairs {
  std::vector<LoopPair> Nearest;  ///< in order of distance
  std::size_t Effort = 0;         ///< how many distances were measured
};

/// For every loop the nearest other one, and every other pair as near as `reach` (none when that is
/// negative).
LoopPairs FindNearLoops(const std::vector<LoopOfNet>& loops, double reach);

}  // namespace analysis
