/// The bond wires of a package, measured.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "analysis/line_check.h"
#include "model/package.h"
#include "model/wire_bond_settings.h"
#include "model/wire_selection.h"
#include "model/wire_shapes.h"

namespace analysis {

/// One wire. Lengths and heights in file units, rounded as they are shown.
struct WireRow {
  std::string Name = {};
  std::string OtherName = {};  ///< the second pad of a stitch, else empty
  const char* Table = "";      ///< "base", "stacked" or "stitch"
  std::string Tier = {}, NetType = {};
  double PlanLength = 0.0;
  double Length = 0.0;  ///< of the loop in space
  double Angle =
      0.0;  ///< degrees between the wire, seen from above, and the outward normal of its pad's edge
  double StartHeight = 0.0, TopHeight = 0.0, EndHeight = 0.0;
  std::size_t Line = 0;  ///< of the package file
};

struct WireGroup {
  std::string Tier, NetType;
  std::size_t Wires = 0;
  double Shortest = 0.0, Mean = 0.0, Longest = 0.0, Total = 0.0;  ///< of the loops in space
  double LargestAngle = 0.0;
};

/// Which wires, and how their loops run.
struct WiresAsked {
  const model::WireBondSettings& settings;
  const model::WireShapes& shapes;
  const model::WireSelection& selection;
};

/// A row for each wire that the viewer would draw of a wire-bond package: base die, stacked die, stitches.
/// Tier and net type are those of the first wire-list entry of that name; a stitch goes by its first pad.
/// Faults  Unusable when a wire has no loop
std::vector<WireRow> WireRows(const model::Package& package, const WiresAsked& asked,
                              const PackageLines& lines);

/// The rows by tier and net type, in the order of these texts.
std::vector<WireGroup> GroupsOf(const std::vector<WireRow>& rows);

}  // namespace analysis
