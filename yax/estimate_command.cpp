#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
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
#include "yax/output.h"

namespace yax {

namespace {

struct EstimateOptions {
  PackageOptions Package;
  std::string Output = "-";
  std::string Format = "csv";
  std::optional<double> Resistivity, Plane, Coupling;
};

constexpr double kLeastCoupling = 0.1;  ///< for a circuit, without --coupling
constexpr double kNoCoupling = 2.0;     ///< more than any coupling

std::string Text(double value) { return model::GeneralText(static_cast<float>(value)); }

double ResistivityFor(const EstimateOptions& options, const model::WireBondSettings& settings) {
  if (!options.Resistivity) return *analysis::ResistivityOf(settings.Material);
  if (!(*options.Resistivity > 0.0))
    throw Unusable(CommandLine(), "the resistivity is not above 0", "give it in ohm metres, such as 2.21e-8");
  return *options.Resistivity;
}

analysis::BondWires ConductorsOf(const EstimateOptions& options, const OpenedPackage& opened,
                                 const std::vector<analysis::WireLoop>& loops) {
  opened.WireDiameter();  // refuses a diameter that is not above 0
  if (opened.Settings.Frequency < 0.0F)
    throw Unusable(CommandLine(), "the frequency is below 0", "give one with --frequency");
  return analysis::ConductorsOf(loops, opened.Settings, opened.Unit(),
                                ResistivityFor(options, opened.Settings), options.Plane);
}

/// The place of the wire's line, for a message.
Place PlaceOf(const EstimateOptions& options, const OpenedPackage& opened, const analysis::WireLoop& loop) {
  return {options.Package.File, opened.Lines.Of(loop.Place)};
}

void CheckPlane(const EstimateOptions& options, const OpenedPackage& opened,
                const std::vector<analysis::WireLoop>& loops) {
  if (!options.Plane) return;
  for (const analysis::WireLoop& loop : loops) {
    double lowest = loop.Points.front().z;
    for (const glm::dvec3& point : loop.Points) lowest = std::min(lowest, point.z);
    if (lowest < *options.Plane)
      throw Unusable(PlaceOf(options, opened, loop),
                     "the plane at " + Text(*options.Plane) + " lies above a point of " +
                         QuotedRecordName(opened.Package, loop.Place) + ", at " + Text(lowest) + " " +
                         opened.Unit().Name,
                     "give a plane below all wires");
  }
}

/// The smallest coupling to keep; empty when there are too many wires to compute couplings without
/// --coupling.
std::optional<double> LeastCoupling(const EstimateOptions& options, std::size_t wires) {
  const std::string fewer =
      "choose at most " + std::to_string(analysis::kMostCoupled) + " with --tier, --net or --name";
  if (options.Coupling && wires > analysis::kMostCoupled)
    throw Unusable({.File = options.Package.File},
                   "couplings of " + std::to_string(wires) + " wires are too many", fewer);
  if (options.Coupling || wires <= analysis::kMostCoupledByDefault)
    // A table lists only the strongest coupling of each wire.
    return options.Format == "spice" ? options.Coupling.value_or(kLeastCoupling) : kNoCoupling;
  Complain({.File = options.Package.File},
           "note: the couplings of " + std::to_string(wires) + " wires are not computed",
           wires > analysis::kMostCoupled ? fewer : "pass --coupling to compute them");
  return std::nullopt;
}

std::string CircuitOf(const EstimateOptions& options, analysis::WireCosts costs,
                      const OpenedPackage& opened) {
  const double least = options.Coupling.value_or(kLeastCoupling);
  formats::RoundCouplings(costs.Couplings);
  if (!analysis::IsPositiveDefinite(costs.Rows.size(), costs.Couplings))
    throw Unusable({.File = options.Package.File},
                   "the couplings of at least " + Text(least) + " alone are physically impossible",
                   "give --coupling " +
                       Text(analysis::UsableLeast(costs.Rows.size(), costs.Couplings, least)) +
                       ", or 0 for all");
  std::string conditions = formats::ConditionsText(costs.Rows.size(), opened.Settings);
  if (options.Resistivity) conditions += ", resistivity given";
  if (options.Plane) conditions += ", a plane at " + Text(*options.Plane) + " " + opened.Unit().Name;
  return formats::CircuitText(costs, {.Package = std::string(model::FileNameOf(opened.Package.PackagePath)),
                                      .Conditions = conditions,
                                      .LeastCoupling = least});
}

Status Estimate(const EstimateOptions& options) {
  const OpenedPackage opened(options.Package);
  const std::vector<analysis::WireLoop> loops = opened.Loops();
  const analysis::BondWires wires = ConductorsOf(options, opened, loops);
  CheckPlane(options, opened, loops);
  analysis::WireCosts costs =
      analysis::CostsOf(opened.Package, loops, wires, LeastCoupling(options, loops.size()));
  if (const auto wire = analysis::WireWithoutCost(costs))
    throw Unusable(
        PlaceOf(options, opened, loops[*wire]),
        QuotedRecordName(opened.Package, loops[*wire].Place) + " is too long or too thin to compute",
        "check its coordinates, --wire-diameter and --resistivity");
  if (options.Format == "spice")
    WriteOutput(options.Output, CircuitOf(options, std::move(costs), opened));
  else
    WriteOutput(options.Output,
                options.Format == "json" ? formats::CostsJson(costs) : formats::CostsCsv(costs));
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
      program.add_subcommand("estimate", "Compute the wires' resistance, inductance and couplings");
  const auto options = std::make_shared<EstimateOptions>();
  AddPackageOption(*command, options->Package);
  command->add_option("-o,--output", options->Output, "Output file; - for standard output (the default)")
      ->type_name("FILE");
  command->add_option("--format", options->Format, "A table (the default), a JSON object, or a subcircuit")
      ->check(CLI::IsMember(std::vector<std::string>{"csv", "json", "spice"}));
  AddNumber(*command, "--resistivity", "OHM_M",
            "Resistivity of the wires in ohm metres (default: that of the material)", options->Resistivity);
  AddNumber(*command, "--plane", "UNITS",
            "Add a conducting plane below the wires, at this height above the substrate in file units",
            options->Plane);
  command
      ->add_option_function<std::string>(
          "--coupling",
          [options](const std::string& text) {
            const double least = DoubleOf("--coupling", text);
            if (!(least >= 0.0 && least <= 1.0))
              throw Unusable(CommandLine(), "--coupling " + model::Quoted(text) + " is not from 0 to 1",
                             "0 writes all");
            options->Coupling = least;
          },
          "Smallest coupling to write to a subcircuit, 0 to 1 (default: 0.1; 0 writes all). Couplings of "
          "more "
          "than " +
              std::to_string(analysis::kMostCoupledByDefault) +
              " wires are computed only with this option, of more than " +
              std::to_string(analysis::kMostCoupled) + " never")
      ->type_name("K");
  AddUnitOption(*command, options->Package);
  AddLoopOptions(*command, options->Package.Loops);
  AddWireOptions(*command, options->Package.Wires);
  return {command, [options] { return Estimate(*options); }};
}

}  // namespace yax
