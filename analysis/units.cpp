#include "analysis/units.h"

#include <algorithm>

namespace analysis {

std::optional<LengthUnit> UnitNamed(std::string_view name) {
  for (const LengthUnit& unit : kLengthUnits)
    if (name == unit.Name) return unit;
  return std::nullopt;
}

std::optional<LengthUnit> LikelyUnitOf(const model::Package& package) {
  // No die is only 20 mils long, and hardly one 20 mm.
  constexpr double kShortestInMils = 20.0;
  const double longer = double(std::max(package.CompL, package.CompW)) * double(package.UnitScale);
  return longer < kShortestInMils ? std::nullopt : UnitNamed("mil");
}

}  // namespace analysis
