/// What the estimator shows: the costs of a package's wires at the settings of a parameter file.
#pragma once

#include <optional>
#include <string>

#include "analysis/units.h"
#include "analysis/wire_costs.h"
#include "formats/circuit.h"

namespace estimator {

struct Request {
  std::string ParameterFile;
  std::string Folder;               ///< where the package is looked for before the parameter file's folder
  std::optional<std::string> Unit;  ///< of the package file; nothing for the one that suits its die
};

struct Estimate {
  std::string PackageFile;
  analysis::LengthUnit Unit{};
  analysis::WireCosts Costs;
  formats::CircuitNote Note;  ///< for the wires as a circuit
};

/// Reads parameter file and package and works out the wires. Settings that the file leaves out are those of a
/// package just loaded.
/// Faults  InputError when one of the files cannot be used, Fault when a wire cannot be drawn
Estimate Work(const Request& request);

/// The wires as a circuit: with the couplings of at least 0.1, or of what more it takes for a circuit.
std::string CircuitOf(const Estimate& estimate);

}  // namespace estimator
