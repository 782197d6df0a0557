/// What a unit of the package file is.
#pragma once

#include <optional>
#include <string>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace CLI {
class App;
}

namespace yax {

/// A unit of length that package files are written in.
struct LengthUnit {
  const char* Name;
  double Mils;    ///< a unit in mils
  double Metres;  ///< a unit in metres
  int Decimals;   ///< with which lengths are shown
};

struct UnitOptions {
  std::string Name;  ///< empty when none was given
};

/// Adds --unit.
void AddUnitOption(CLI::App& command, UnitOptions& options);

/// The unit given, else mils.
/// Faults  Unusable when none was given and the base die is so small that it must be in millimetres
LengthUnit UnitOf(const UnitOptions& options, const model::Package& package);

/// The wires' diameter in file units.
/// Faults  Unusable unless it is above 0
double WireDiameterIn(const LengthUnit& unit, const model::WireBondSettings& settings);

}  // namespace yax
