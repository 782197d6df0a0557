/// The wires that stand for all others in the side view, laid out along one axis.
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
  std::vector<SidePoint> Points;  ///< the seven of the loop; none when it cannot be drawn
  double StartSize = 0.0;         ///< extent of the pad at its start
  double EndSize = 0.0;           ///< of the one at its end
};

struct SideWires {
  SideWire Base, Stack, Stitch;
};

/// Of each kind the wire of middle length among those that can be drawn, or a placeholder where the package
/// has none of the kind. Faults of wires that cannot be drawn are passed over.
SideWires SideWiresOf(const model::Package& package, const model::WireBondSettings& settings);

}  // namespace setup
