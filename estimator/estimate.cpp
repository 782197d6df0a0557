#include "estimator/estimate.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "analysis/coupling_matrix.h"
#include "analysis/lengths.h"
#include "analysis/wire_loops.h"
#include "model/faults.h"
#include "model/files.h"
#include "model/input_error.h"
#include "model/reader/read_package.h"
#include "model/text.h"
#include "setup/parameter_file.h"

namespace estimator {

namespace {

constexpr double kLeastCoupling = 0.1;

setup::ParameterValues ReadParameters(const std::string& file) {
  try {
    return setup::ReadParameterValues(model::ReadWholeFile(file), file);
  } catch (const model::FileFault& fault) {
    throw model::InputError({.File = file}, fault.Kind(), "give the path of a .zu file");
  }
}

std::string PackageFileOf(const Request& request, const setup::ParameterValues& values) {
  if (!values.PackageName || values.PackageName->empty())
    throw model::InputError({.File = request.ParameterFile}, "it has no YAXFile line with a name",
                            "add a line YAXFile=NAME");
  const std::filesystem::path beside = std::filesystem::path(request.ParameterFile).parent_path();
  for (const std::filesystem::path& folder : {std::filesystem::path(request.Folder), beside}) {
    const std::string file = folder / *values.PackageName;
    if (model::FileExists(file)) return file;
  }
  throw model::InputError({.File = *values.PackageName},
                          "not found in " + request.Folder + " or beside " + request.ParameterFile,
                          "put it there, or start the estimator in the package's folder");
}

model::Package ReadPackage(const std::string& file) {
  model::PackageScalars before;
  before.PackagePath = file;
  std::optional<model::Package> package = model::reader::ReadPackage(before);
  if (!package || !model::reader::HasCompZLine(*package))
    throw model::InputError({.File = file}, "it has no COMPZ line", "give the path of a .yax file");
  return *std::move(package);
}

analysis::LengthUnit UnitOf(const Request& request, const model::Package& package) {
  const auto named = request.Unit ? analysis::UnitNamed(*request.Unit) : analysis::LikelyUnitOf(package);
  return named ? *named : *analysis::UnitNamed("mm");
}

}  // namespace

Estimate Work(const Request& request) {
  const setup::ParameterValues values = ReadParameters(request.ParameterFile);
  Estimate estimate{.PackageFile = PackageFileOf(request, values), .Unit = {}, .Costs = {}, .Note = {}};
  const model::Package package = ReadPackage(estimate.PackageFile);
  estimate.Unit = UnitOf(request, package);
  model::WireBondSettings settings = model::SettingsAfterReset(package);
  setup::Apply(values, settings);
  if (!(settings.WireDiameter > 0.0F))
    throw model::InputError({.File = request.ParameterFile}, "the wire diameter is not above 0",
                            "correct it");
  if (settings.Frequency < 0.0F)
    throw model::InputError({.File = request.ParameterFile}, "the frequency is below 0", "correct it");
  const model::WireSelection all;
  const std::vector<analysis::WireLoop> loops = analysis::WireLoopsOf({package, settings, all});
  const analysis::BondWires wires =
      analysis::ConductorsOf(loops, settings, estimate.Unit, *analysis::ResistivityOf(settings.Material));
  const bool couple = loops.size() <= analysis::kMostCoupledByDefault;
  estimate.Costs =
      analysis::CostsOf(package, loops, wires, couple ? std::optional(kLeastCoupling) : std::nullopt);
  estimate.Note = {.Package = std::string(model::FileNameOf(estimate.PackageFile)),
                   .Conditions = formats::ConditionsText(loops.size(), settings),
                   .LeastCoupling = kLeastCoupling};
  return estimate;
}

std::string CircuitOf(const Estimate& estimate) {
  const std::size_t count = estimate.Costs.Rows.size();
  std::vector<analysis::Coupling> written = estimate.Costs.Couplings;
  formats::RoundCouplings(written);
  if (analysis::IsPositiveDefinite(count, written))
    return formats::CircuitText(estimate.Costs, estimate.Note);
  formats::CircuitNote note = estimate.Note;
  note.LeastCoupling = analysis::UsableLeast(count, written, note.LeastCoupling);
  return formats::CircuitText(analysis::Reduced(estimate.Costs, note.LeastCoupling), note);
}

}  // namespace estimator
