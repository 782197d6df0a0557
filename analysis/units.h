/// The units of length that package files are written in.
#pragma once

#include <optional>
#include <string_view>

#include "model/package.h"

namespace analysis {

struct LengthUnit {
  const char* Name;
  double Mils;    ///< a unit in mils
  double Metres;  ///< a unit in metres
  int Decimals;   ///< decimals with which lengths are shown
};

/// "mil", "mm" or "um"; nothing for any other name.
std::optional<LengthUnit> UnitNamed(std::string_view name);

/// Mils, the unit of wire diameters; nothing when the base die is so small that the file must be in
/// millimetres.
std::optional<LengthUnit> LikelyUnitOf(const model::Package& package);

}  // namespace analysis
