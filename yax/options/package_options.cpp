#include "yax/options/package_options.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <optional>
#include <utility>

#include "model/faults.h"
#include "yax/messages.h"

namespace yax {

void AddPackageOption(CLI::App& command, PackageOptions& options) {
  command.add_option("FILE.yax", options.File, "The package to read")->type_name("FILE")->required();
}

model::Package LoadPackage(const PackageOptions& options, model::reader::ReadObserver* observer) {
  const Place file{.File = options.File};
  model::PackageScalars before;
  before.PackagePath = options.File;
  std::optional<model::Package> package;
  try {
    package = model::reader::ReadPackage(before, observer);
  } catch (const model::Fault& fault) {
    throw Unusable(file, fault.what(), "make the file and its side file readable");
  }
  std::error_code ignored;
  if (!package && std::filesystem::exists(options.File, ignored))
    throw Unusable(file, "it is not a regular file", "give the path of a .yax file");
  if (!package) throw Unusable(file, "there is no such file", "give the path of a .yax file");
  // Only a COMPZ line sets the height, and never to 0.
  if (package->CompZ == 0.0F)
    throw Unusable(file, "it has no COMPZ line", "begin with a header that ends in a COMPZ line");
  return *std::move(package);
}

}  // namespace yax
