/// The option that names the unit of the package file.
#pragma once

#include <string>

#include "analysis/units.h"
#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace CLI {
class App;
}

namespace yax {

struct UnitOptions {
  std::string Name;  ///< empty when none was given
};

/// Adds --unit.
void AddUnitOption(CLI::App& command, UnitOptions& options);

/// The given unit, or mils.
/// Faults  Unusable when no unit was given and the base die is so small that the unit must be millimetres
analysis::LengthUnit UnitOf(const UnitOptions& options, const model::Package& package);

/// The wires' diameter in file units.
/// Faults  Unusable unless it is above 0
double WireDiameterIn(const analysis::LengthUnit& unit, const model::WireBondSettings& settings);

}  // namespace yax
