/// The lengths of the wires of a package, and the angles at which they leave their dies.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "analysis/wire_loops.h"

namespace analysis {

/// One wire. Lengths and heights in file units, rounded to the digits that are shown.
struct WireRow {
  model::RecordPlace Place = {};
  std::string Name = {};
  std::string OtherName = {};  ///< the second pad of a stitch, else empty
  std::string Tier = {}, NetType = {};
  double PlanLength = 0.0;
  double Length = 0.0;  ///< length of the loop in space
  double Angle = 0.0;   ///< between the wire, seen from above, and the normal of its pad's edge; degrees
  double StartHeight = 0.0, TopHeight = 0.0, EndHeight = 0.0;

  /// As in the wire list: "A", or "A:B" for a stitch.
  std::string ListName() const { return OtherName.empty() ? Name : Name + ":" + OtherName; }
};

/// The wires of one tier and net type.
struct WireGroup {
  std::string Tier, NetType;
  std::size_t Wires = 0;
  double Shortest = 0.0, Mean = 0.0, Longest = 0.0, Total = 0.0;  ///< lengths of the loops in space
  double LargestAngle = 0.0;
};

/// A row for each loop of the package. Tier and net type are those of the first wire list entry of that name;
/// a stitch takes those of its first pad.
/// Faults  Overflow for a length beyond the range of a single
std::vector<WireRow> MeasureLengths(const model::Package& package, const std::vector<WireLoop>& loops);

/// The rows by tier and net type, in the order of these texts.
std::vector<WireGroup> GroupsOf(const std::vector<WireRow>& rows);

}  // namespace analysis
