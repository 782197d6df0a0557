/// The one walk over the bond wires of a package: each with the loop that the settings give it.
#pragma once

#include <functional>
#include <string>

#include "model/faults.h"
#include "model/package.h"
#include "model/record_place.h"
#include "model/wire_bond_settings.h"
#include "model/wire_path.h"
#include "model/wire_selection.h"
#include "model/wire_shapes.h"

namespace model {

struct Wire {
  RecordPlace Place;        ///< a bond of either die, or a stitch
  const std::string& Name;  ///< as in the wire list: "A", or "A:B" for a stitch
  WirePath Path;            ///< package axes, scene units
};

/// Which wires, and how their loops run.
struct WireInputs {
  const model::Package& Package;
  const WireBondSettings& Settings;
  const WireSelection& Selection;
  const WireShapes* Shapes = nullptr;  ///< loops that override the settings; may be null
};

using WireVisit = std::function<void(const Wire&)>;
using WireFault = std::function<void(const Fault&)>;

/// Calls `visit` for every selected wire: of the base die, of the stacked die, then the stitches. Ignores the
/// technology: the caller checks that the package is wire-bonded.
/// Faults  DivisionByZero when a wire's ends coincide in plan, or when a wire that should reach the base
///         die's edge runs along it; Overflow; TooManyRecords from 32,768 records of a table on. With
///         `onFault`, passes each fault to it with its record and continues with the next wire
void ForEachWire(const WireInputs& inputs, const WireVisit& visit, const WireFault& onFault = {});

}  // namespace model
