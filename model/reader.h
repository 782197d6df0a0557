/// Reads a package file and its net-type side file into a fresh package.
#pragma once

#include <cstddef>
#include <optional>

#include "model/package.h"
#include "model/read_observer.h"

namespace model {

/// What one read took.
struct ReadEffort {
  std::size_t nameComparisons = 0;
  std::size_t lines = 0;  ///< of the package file, empty ones included
};

/// Reads the package at `before.PackagePath`.
/// Reads   the file, and PackagePath + ".vu" where that exists
/// Returns the new package; empty when the path is empty or no such file exists. Scalars that the file
///         does not set keep the values of `before`, and are divided again when it rescales.
/// Faults  FileFault when a file is there but cannot be opened or read
std::optional<Package> ReadPackage(const PackageScalars& before, ReadEffort* effort = nullptr,
                                   ReadObserver* observer = nullptr);

}  // namespace model
