/// The loops of a package's wires in file units, for all that measures them.
#pragma once

#include <array>
#include <glm/vec3.hpp>
#include <string>
#include <vector>

#include "model/for_each_wire.h"

namespace analysis {

struct WireLoop {
  model::RecordPlace Place;
  std::string Name;                 ///< as in the wire list: "A", or "A:B" for a stitch
  std::array<std::string, 2> Pads;  ///< both pads of a stitch; a wire's one pad twice
  std::array<glm::dvec3, model::kWirePointCount> Points{};  ///< package axes, file units
};

/// The wires that the scene draws: of the base die, of the stacked die, then the stitches; none where the
/// package is not wire-bonded.
/// Faults  as model::ForEachWire
std::vector<WireLoop> WireLoopsOf(const model::WireInputs& inputs);

/// The length of the loop in space.
double LengthOf(const WireLoop& loop);
/// The distance of the loop's ends as seen from above.
double PlanLengthOf(const WireLoop& loop);
/// The height of the loop's highest point.
double TopOf(const WireLoop& loop);

}  // namespace analysis
