/// The measured data of a package as lines for its bonding diagram.
#pragma once

#include <string>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"
#include "sheet/diagram_inputs.h"
#include "sheet/diagram_wires.h"

namespace sheet {

/// Units  the numbers are in `Unit`; a file unit is `NumberScale` of these
struct MeasuredInputs {
  const model::Package& Package;
  const std::vector<DiagramWire>& Wires;
  const model::WireBondSettings& Settings;
  std::string Unit;
  double NumberScale = 1.0;
  std::string Rules, Verdict;  ///< empty when no rules were given
};

std::vector<Fact> MeasuredData(const MeasuredInputs& inputs);

}  // namespace sheet
