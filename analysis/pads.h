/// The pads of a package as rectangles seen from above, as the viewer draws them.
#pragma once

#include <optional>
#include <vector>

#include "analysis/die_edges.h"
#include "analysis/plan_rectangle.h"
#include "model/package.h"
#include "model/record_place.h"

namespace analysis {

// Units   file units, package axes

struct Pad {
  model::RecordPlace Place;  ///< a bond's die pad or substrate pad
  bool Round = false;        ///< a disc (die pad), or round ends (substrate pad)
  PlanRectangle Shape;       ///< for a substrate pad the axis runs along its length

  /// Whether its bond is one of the stacked die's.
  bool IsStacked() const { return Place.Table == model::RecordTable::SDBonds; }
};

PlanRectangle RectangleOf(const DieOutline& die);

/// The visible die pads, base die first. A round one is the square around it, turned with its die.
std::vector<Pad> DiePads(const model::Package& package);

/// The visible substrate pads; none where the package is not wire-bonded. Round ends count to the length.
std::vector<Pad> SubstratePads(const model::Package& package);

/// The bond that a pad is part of.
const model::BondRec& BondOf(const model::Package& package, const Pad& pad);

/// The smallest distance between the centres of two die pads of one die and edge; nothing without such a
/// pair.
std::optional<double> SmallestPitch(const model::Package& package, const std::vector<Pad>& diePads);

}  // namespace analysis
