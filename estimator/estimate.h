/// The costs of a package's wires with the settings of a parameter file.
#pragma once

#include <optional>
#include <string>

#include "analysis/units.h"
#include "analysis/wire_costs.h"
#include "formats/circuit.h"

namespace estimator {

struct Request {
  std::string ParameterFile;
  std::string Folder;               ///< searched for the package before the parameter file's folder
  std::optional<std::string> Unit;  ///< of the package file; if empty, mil or mm by the size of the die
};

struct Estimate {
  std::string PackageFile;
  analysis::LengthUnit Unit{};
  analysis::WireCosts Costs;
  formats::CircuitNote Note;  ///< for the wires as a circuit; the window shows its conditions
};

/// Reads both files and computes the wires' costs. A setting that the parameter file does not give has the
/// value that a load sets.
/// Faults  InputError when one of the files cannot be used, Fault when a wire cannot be drawn
Estimate Work(const Request& request);

/// The wires as a circuit with couplings of at least 0.1. The limit is higher when a circuit with only these
/// could not exist.
std::string CircuitOf(const Estimate& estimate);

}  // namespace estimator
