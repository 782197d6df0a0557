#include "yax/options/opened_package.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <utility>

#include "analysis/fault_advice.h"
#include "model/faults.h"
#include "yax/options/unit_option.h"

namespace yax {

void AddPackageOption(CLI::App& command, PackageOptions& options) {
  command.add_option("FILE.yax", options.File, "The package to read")->type_name("FILE")->required();
}

void AddUnitOption(CLI::App& command, PackageOptions& options) {
  AddUnitOption(command, "Length unit of the file (default: mil); wire diameters are always in mils",
                options.Unit);
}

model::Package LoadPackage(const std::string& name, model::reader::ReadObserver* observer) {
  const Place file{.File = name};
  model::PackageScalars before;
  before.PackagePath = name;
  std::optional<model::Package> package;
  try {
    package = model::reader::ReadPackage(before, observer);
  } catch (const model::Fault& fault) {
    throw Unusable(file, fault.what(), "make the file and its side file readable");
  }
  std::error_code ignored;
  if (!package && std::filesystem::exists(name, ignored))
    throw Unusable(file, "it is not a regular file", "give the path of a .yax file");
  if (!package) throw Unusable(file, "no such file", "give the path of a .yax file");
  if (!model::reader::HasCompZLine(*package))
    throw Unusable(file, "it has no COMPZ line", "begin with a header that ends in a COMPZ line");
  return *std::move(package);
}

OpenedPackage::OpenedPackage(PackageOptions options)
    : Options(std::move(options)), Package(LoadPackage(Options.File, &Lines)) {}

OpenedPackage::OpenedPackage(PackageOptions options, model::Package package, analysis::RecordLines lines)
    : Options(std::move(options)), Lines(std::move(lines)), Package(std::move(package)) {}

std::vector<analysis::WireLoop> OpenedPackage::LoopsOf(const model::WireInputs& inputs) const {
  try {
    return analysis::WireLoopsOf(inputs);
  } catch (const model::Fault& fault) {
    throw NotDrawn(fault);
  }
}

analysis::LengthUnit OpenedPackage::Unit() const {
  if (Options.Unit) return *Options.Unit;
  if (const auto likely = analysis::LikelyUnitOf(Package)) return *likely;
  throw Unusable({.File = Package.PackagePath}, "the die's size suggests mm", "pass --unit mm, um or mil");
}

double OpenedPackage::WireDiameter() const {
  if (!(Settings.WireDiameter > 0.0F))
    throw Unusable(CommandLine(), "the wire diameter is not above 0", "give one with --wire-diameter");
  return double(Settings.WireDiameter) / Unit().Mils;
}

Unusable OpenedPackage::NotDrawn(const model::Fault& fault) const {
  return analysis::NotDrawn(Package.PackagePath, fault, Lines);
}

}  // namespace yax
