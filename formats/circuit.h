/// The wires of a package as a subcircuit for simulators of the SPICE family.
#pragma once

#include <string>
#include <vector>

#include "analysis/wire_costs.h"

namespace formats {

/// Facts for the comments of a circuit.
struct CircuitNote {
  std::string Package;     ///< the package's file name; the subcircuit is named after it
  std::string Conditions;  ///< the wires' material and diameter, the frequency, the plane
  double LeastCoupling = 0.0;
};

/// Number, material and diameter of the wires, and the frequency.
std::string ConditionsText(std::size_t wires, const model::WireBondSettings& settings);

/// A subcircuit with two ports for each wire, its start and its end, in the order of the wires. Each wire is
/// a resistance and an inductance in series; couplings follow. Comments name the wires and list omitted
/// couplings.
std::string CircuitText(const analysis::WireCosts& costs, const CircuitNote& note);

/// Rounds the couplings to the nine decimals of the circuit's text, so that the check covers the values as
/// written.
void RoundCouplings(std::vector<analysis::Coupling>& couplings);

}  // namespace formats
