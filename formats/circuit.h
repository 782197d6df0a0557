/// The wires of a package as a subcircuit for simulators of the SPICE family.
#pragma once

#include <string>

#include "analysis/wire_costs.h"

namespace formats {

/// What the circuit says about itself.
struct CircuitNote {
  std::string Package;     ///< the name of the package's file, after which the subcircuit is named
  std::string Conditions;  ///< the wires' material and diameter, the frequency, the plane
  double LeastCoupling = 0.0;
};

/// How many wires there are, of what and at which frequency.
std::string ConditionsText(std::size_t wires, const model::WireBondSettings& settings);

/// A subcircuit with two ports for each wire, its start and its end, in the wires' order: a resistance and an
/// inductance in series, and the couplings. A comment says what each stands for, and what was left out.
std::string CircuitText(const analysis::WireCosts& costs, const CircuitNote& note);

/// The couplings as the circuit has them, to nine digits.
std::vector<analysis::Coupling> AsWritten(std::vector<analysis::Coupling> couplings);

}  // namespace formats
