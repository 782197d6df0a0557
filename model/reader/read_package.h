/// Reads a package file and its net-type side file into a fresh package.
#pragma once

#include <optional>
#include <string>

#include "model/package.h"
#include "model/reader/read_observer.h"

namespace model::reader {

/// The contents of a package's files.
struct PackageBytes {
  std::string PackageFile;
  std::optional<std::string> SideFile;  ///< with the net types, if it exists
};

/// Parses any bytes as a package. Scalars that they do not set keep the values of `before`, and are divided
/// again when the package is rescaled.
Package ParsePackage(const PackageScalars& before, PackageBytes bytes, ReadObserver* observer = nullptr);

/// Reads the package at `before.PackagePath`.
/// Reads   the file, and PackagePath + ".vu" where that exists
/// Returns what ParsePackage makes of them; empty when the path is empty or no such file exists
/// Faults  FileFault when a file exists but cannot be opened or read
std::optional<Package> ReadPackage(const PackageScalars& before, ReadObserver* observer = nullptr);

/// Whether the file of a package that was read with fresh scalars has a COMPZ line: only that line sets the
/// height, and never to 0.
inline bool HasCompZLine(const Package& package) { return package.CompZ != 0.0F; }

}  // namespace model::reader
