/// The units of length that package files are written in.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "model/package.h"

namespace analysis {

struct LengthUnit {
  const char* Name;
  double Mils;         ///< a unit in mils
  double Millimetres;  ///< a unit in millimetres
  double Metres;       ///< a unit in metres
  int Decimals;        ///< decimals with which lengths are shown
};

/// All units, in the order in which a choice lists them.
inline constexpr std::array<LengthUnit, 3> kLengthUnits{{{"mil", 1.0, 25.4e-3, 25.4e-6, 4},
                                                         {"mm", 1.0 / 25.4e-3, 1.0, 1e-3, 6},
                                                         {"um", 1e-3 / 25.4e-3, 1e-3, 1e-6, 3}}};

/// The unit of this name; nothing for any other name.
std::optional<LengthUnit> UnitNamed(std::string_view name);

/// Mils, the unit of wire diameters; nothing when the base die is so small that the file must be in
/// millimetres.
std::optional<LengthUnit> LikelyUnitOf(const model::Package& package);

}  // namespace analysis
