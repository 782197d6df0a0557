#include "yax/options/unit.h"

#include <CLI/CLI.hpp>
#include <vector>

#include "yax/messages.h"

namespace yax {

void AddUnitOption(CLI::App& command, UnitOptions& options) {
  command
      .add_option("--unit", options.Name,
                  "The length unit of the file (default: mil, in which wire diameters are)")
      ->check(CLI::IsMember(std::vector<std::string>{"mil", "mm", "um"}));
}

analysis::LengthUnit UnitOf(const UnitOptions& options, const model::Package& package) {
  if (const auto named = analysis::UnitNamed(options.Name)) return *named;
  if (const auto likely = analysis::LikelyUnitOf(package)) return *likely;
  throw Unusable({.File = package.PackagePath}, "this looks like mm",
                 "pass --unit mm, or the unit that the file has");
}

double WireDiameterIn(const analysis::LengthUnit& unit, const model::WireBondSettings& settings) {
  if (!(settings.WireDiameter > 0.0F))
    throw Unusable(CommandLine(), "the wire diameter is not above 0", "give one with --wire-diameter");
  return double(settings.WireDiameter) / unit.Mils;
}

}  // namespace yax
