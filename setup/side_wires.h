/// The wires that stand for all others in the side view, laid out along one axis.
#pragma once

#include <optional>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace setup {

/// A point of the side view: Out runs from the base die's edge (0) towards the substrate pads, Up is the
/// height. Units   scene units
struct SidePoint {
  double Out = 0.0, Up = 0.0;
};

struct SideWire {
  std::vector<SidePoint> Points;  ///< the seven of the loop; none when it cannot be drawn
  double StartSize = 0.0;         ///< extent of the pad at its start
  double EndSize = 0.0;           ///< of the one at its end
};

/// Each takes the wire of middle length, or makes a likely one up; none of them faults.
SideWire SideBaseWire(const model::Package& package, const model::WireBondSettings& settings);
SideWire SideStackWire(const model::Package& package, const model::WireBondSettings& settings);
SideWire SideStitchWire(const model::Package& package, const model::WireBondSettings& settings);

}  // namespace setup
