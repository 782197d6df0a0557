/// The package file of a command.
#pragma once

#include <string>

#include "model/package.h"
#include "model/reader/read_package.h"

namespace CLI {
class App;
}

namespace yax {

struct PackageOptions {
  std::string File;
};

/// Adds FILE.yax.
void AddPackageOption(CLI::App& command, PackageOptions& options);

/// Reads the package as the viewer does at its start.
/// Faults  Unusable when there is no such file, it cannot be read, or it has no COMPZ line
model::Package LoadPackage(const PackageOptions& options, model::reader::ReadObserver* observer = nullptr);

}  // namespace yax
