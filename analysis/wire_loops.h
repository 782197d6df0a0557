/// The loops of a package's wires, as the scene draws them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "analysis/segment_distance.h"
#include "model/package.h"
#include "model/record_place.h"
#include "model/wire_bond_settings.h"
#include "model/wire_path.h"
#include "model/wire_selection.h"
#include "model/wire_shapes.h"

namespace analysis {

/// A wire as the scene draws it.
struct DrawnWire {
  model::RecordPlace Place;
  std::string Name;
  model::WirePath Path{};  ///< package axes, in the package's unit
};

/// The wires that `selection` draws: the base die's, the stacked die's, then the stitches.
/// Needs   a wire-bonded package
/// Faults  Unusable when a wire cannot be drawn
std::vector<DrawnWire> DrawnWires(const model::Package& package, const model::WireBondSettings& settings,
                                  const model::WireShapes& shapes, const model::WireSelection& selection);

struct WireLoop {
  std::string Name;                 ///< as in the wire list: "A", or "A:B" for a stitch
  std::array<std::string, 2> Pads;  ///< both pads of a stitch; a wire's one pad twice
  std::array<analysis::Point3, model::kWirePointCount> Points{};  ///< package axes, file units
};

/// Every wire of the base die, then of the stacked die, then every stitch; none where the package is not
/// wire-bonded.
/// Faults  Unusable when the package cannot be drawn
std::vector<WireLoop> WireLoopsOf(const model::Package& package, const model::WireBondSettings& settings,
                                  const model::WireShapes& shapes);

}  // namespace analysis
