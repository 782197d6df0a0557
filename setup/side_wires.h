/// Chooses one wire of each kind for the side view and lays them out along one axis.
#pragma once

#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace setup {

/// A point of the side view: Out runs from the base die's edge (0) towards the substrate pads, Up is the
/// height.
/// Units   scene units
struct SidePoint {
  double Out = 0.0, Up = 0.0;
};

struct SideWire {
  std::vector<SidePoint> Points;  ///< the loop's seven points; empty when it cannot be drawn
  double StartSize = 0.0;         ///< size of the pad at its start
  double EndSize = 0.0;           ///< size of the pad at its end
};

struct SideWires {
  SideWire Base, Stack, Stitch;
};

/// For each kind the wire of median length among those that can be drawn, or a placeholder when the package
/// has none of the kind. Ignores faults of wires that cannot be drawn.
SideWires SideWiresOf(const model::Package& package, const model::WireBondSettings& settings);

}  // namespace setup
