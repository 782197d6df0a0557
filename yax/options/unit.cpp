#include "yax/options/unit.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "yax/messages.h"

namespace yax {

namespace {

constexpr double kMetresPerMil = 25.4e-6;
constexpr LengthUnit kMil{"mil", 1.0, kMetresPerMil, 4};
constexpr LengthUnit kUnits[] = {
    kMil, {"mm", 1e-3 / kMetresPerMil, 1e-3, 6}, {"um", 1e-6 / kMetresPerMil, 1e-6, 3}};

}  // namespace

void AddUnitOption(CLI::App& command, UnitOptions& options) {
  command
      .add_option("--unit", options.Name,
                  "The length unit of the file (default: mil, in which wire diameters are)")
      ->check(CLI::IsMember(std::vector<std::string>{"mil", "mm", "um"}));
}

LengthUnit UnitOf(const UnitOptions& options, const model::Package& package) {
  for (const LengthUnit& unit : kUnits)
    if (options.Name == unit.Name) return unit;
  // No die is only 20 mils long, and hardly one 20 mm.
  constexpr double kShortestInMils = 20.0;
  const double longer = double(std::max(package.CompL, package.CompW)) * double(package.UnitScale);
  if (longer < kShortestInMils)
    throw Unusable({.File = package.PackagePath}, "this looks like mm", "pass --unit");
  return kMil;
}

double WireDiameterIn(const LengthUnit& unit, const model::WireBondSettings& settings) {
  if (!(settings.WireDiameter > 0.0F))
    throw Unusable(CommandLine(), "the wire diameter is not above 0", "give one with --wire-diameter");
  return double(settings.WireDiameter) / unit.Mils;
}

}  // namespace yax
