#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/coupling_matrix.h"
#include "analysis/wire_costs.h"
#include "formats/circuit.h"
#include "formats/cost_table.h"
#include "model/numbers.h"
#include "model/text.h"
#include "yax/command_list.h"
#include "yax/options/opened_package.h"
#include "yax/options/option_text.h"
#include "yax/options/unit.h"
#include "yax/output.h"

namespace yax {

namespace {

struct EstimateOptions {
  PackageOptions package;
  std::string output = "-";
  std::string format = "csv";
  std::optional<double> resistivity, plane, coupling;
  UnitOptions unit;
  LoopOptions loops;
  WireOptions wires;
};

constexpr double kLeastCoupling = 0.1;  ///< of a circuit, where no other is given

std::string Text(double value) { return model::GeneralText(static_cast<float>(value)); }

double ResistivityFor(const EstimateOptions& options, const model::WireBondSettings& settings) {
  if (!options.resistivity) return *analysis::ResistivityOf(settings.Material);
  if (!(*options.resistivity > 0.0))
    throw Unusable(CommandLine(), "the resistivity is not above 0", "give it in ohm metres, such as 2.21e-8");
  return *options.resistivity;
}

analysis::BondWires ConductorsOf(const EstimateOptions& options, const std::vector<analysis::WireLoop>& loops,
                                 const model::WireBondSettings& settings, const analysis::LengthUnit& unit) {
  WireDiameterIn(unit, settings);  // which refuses one that is not above 0
  if (settings.Frequency < 0.0F)
    throw Unusable(CommandLine(), "the frequency is below 0", "give one with --frequency");
  return analysis::ConductorsOf(loops, settings, unit, ResistivityFor(options, settings), options.plane);
}

/// The place of a message about a wire.
Place PlaceOf(const EstimateOptions& options, const OpenedPackage& opened, const analysis::WireLoop& loop) {
  return {options.package.File, opened.Lines.Of(loop.Place)};
}

void CheckPlane(const EstimateOptions& options, const OpenedPackage& opened,
                const std::vector<analysis::WireLoop>& loops, const analysis::LengthUnit& unit) {
  if (!options.plane) return;
  for (const analysis::WireLoop& loop : loops) {
    double lowest = loop.Points.front().z;
    for (const glm::dvec3& point : loop.Points) lowest = std::min(lowest, point.z);
    if (lowest < *options.plane)
      throw Unusable(PlaceOf(options, opened, loop),
                     "the plane at " + Text(*options.plane) + " lies above a point of wire " +
                         model::Quoted(loop.Name) + ", at " + Text(lowest) + " " + unit.Name,
                     "give a plane below all wires");
  }
}

/// The least coupling to keep; nothing where couplings take long and the option does not ask for them.
std::optional<double> LeastCoupling(const EstimateOptions& options, std::size_t wires) {
  if (options.coupling && wires > analysis::kMostCoupled)
    throw Unusable(
        {.File = options.package.File}, "couplings of " + std::to_string(wires) + " wires are too many",
        "choose at most " + std::to_string(analysis::kMostCoupled) + " with --tier, --net or --name");
  if (options.coupling || wires <= analysis::kCoupledUnasked)
    return options.coupling.value_or(kLeastCoupling);
  Complain({.File = options.package.File},
           "note: the couplings of " + std::to_string(wires) + " wires are not worked out",
           "ask for them with --coupling");
  return std::nullopt;
}

std::string CircuitOf(const EstimateOptions& options, const analysis::WireCosts& costs,
                      const OpenedPackage& opened, const analysis::LengthUnit& unit) {
  const double least = options.coupling.value_or(kLeastCoupling);
  const std::vector<analysis::Coupling> written = formats::AsWritten(costs.Couplings);
  if (!analysis::IsPositiveDefinite(costs.Rows.size(), written))
    throw Unusable({.File = options.package.File},
                   "the couplings of at least " + Text(least) + " alone are none that a circuit can have",
                   "give --coupling " + Text(analysis::UsableLeast(costs.Rows.size(), written, least)) +
                       ", or 0 for all");
  std::string conditions = formats::ConditionsText(costs.Rows.size(), opened.Settings);
  if (options.resistivity) conditions += ", resistivity given";
  if (options.plane) conditions += ", a plane at " + Text(*options.plane) + " " + unit.Name;
  return formats::CircuitText(costs, {.Package = std::string(model::FileNameOf(opened.Package.PackagePath)),
                                      .Conditions = conditions,
                                      .LeastCoupling = least});
}

Status Estimate(const EstimateOptions& options) {
  const OpenedPackage opened(options.package, options.loops, options.wires);
  const analysis::LengthUnit unit = UnitOf(options.unit, opened.Package);
  const std::vector<analysis::WireLoop> loops = opened.Loops();
  const analysis::BondWires wires = ConductorsOf(options, loops, opened.Settings, unit);
  CheckPlane(options, opened, loops, unit);
  const analysis::WireCosts costs =
      analysis::CostsOf(opened.Package, loops, wires, LeastCoupling(options, loops.size()));
  if (const auto wire = analysis::WireWithoutCost(costs))
    throw Unusable(PlaceOf(options, opened, loops[*wire]),
                   "wire " + model::Quoted(loops[*wire].Name) + " is too long or too thin to be worked out",
                   "see its coordinates and --wire-diameter");
  if (options.format == "spice")
    WriteOutput(options.output, CircuitOf(options, costs, opened, unit));
  else
    WriteOutput(options.output,
                options.format == "json" ? formats::CostsJson(costs) : formats::CostsCsv(costs));
  return Status::Done;
}

void AddNumber(CLI::App& command, const char* name, const char* unit, const char* description,
               std::optional<double>& value) {
  const auto take = [name, &value](const std::string& text) { value = DoubleOf(name, text); };
  command.add_option_function<std::string>(name, take, description)->type_name(unit);
}

}  // namespace

Command AddEstimate(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("estimate", "Work out the wires' resistance, inductance and couplings");
  const auto options = std::make_shared<EstimateOptions>();
  AddPackageOption(*command, options->package);
  command->add_option("-o,--output", options->output, "Where to write; - for standard output (the default)")
      ->type_name("FILE");
  command->add_option("--format", options->format, "A table, one JSON object, or a subcircuit (default: csv)")
      ->check(CLI::IsMember(std::vector<std::string>{"csv", "json", "spice"}));
  AddNumber(*command, "--resistivity", "OHM_M", "Of the wires, in ohm metres (default: the material's)",
            options->resistivity);
  AddNumber(*command, "--plane", "UNITS", "A conducting plane at this height below the wires, in file units",
            options->plane);
  command
      ->add_option_function<std::string>(
          "--coupling",
          [options](const std::string& text) {
            const double least = DoubleOf("--coupling", text);
            if (!(least >= 0.0 && least <= 1.0))
              throw Unusable(CommandLine(), "--coupling '" + text + "' is not from 0 to 1", "0 takes all");
            options->coupling = least;
          },
          "The smallest coupling of a subcircuit, 0 to 1 (default: 0.1; 0 takes all)")
      ->type_name("K");
  AddUnitOption(*command, options->unit);
  AddLoopOptions(*command, options->loops);
  AddWireOptions(*command, options->wires);
  return {command, [options] { return Estimate(*options); }};
}

}  // namespace yax
