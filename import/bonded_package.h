/// Makes a package from a die, leads and wires, with findings and a summary.
#pragma once

#include <regex>
#include <string>
#include <vector>

#include "import/assignment.h"
#include "model/package.h"

namespace importer {

/// Patterns that find net types by name where the chip's file does not give them. Ground comes first.
struct NetPatterns {
  std::regex Power, Ground;
};

/// The usual names of supplies, such as VDD, AVDD, VCCIO, VPWR and VSS, DGND. Other names that begin with V,
/// such as VIN and VREF, are often signals.
NetPatterns UsualNets();

/// The inputs of a package.
struct BondedChip {
  const Die& Chip;
  const LeadFrame& Frame;
  const Assignment& Bonds;
  const NetPatterns& Nets;
};

/// The package, findings on it, and a summary for people.
struct Bonded {
  model::Package Package;
  std::vector<std::string> Findings;
  std::string Summary;  ///< one line, without a line end
};

/// Makes the package, with lengths in units of `unit` millimetres, which messages call `unitName`. A second
/// wire from a pad repeats the pad as NAME_2. Wires without length, or from the origin, are left out.
/// Faults  InputError when there are more pads than a package can show
Bonded BondedPackage(const BondedChip& chip, double unit, const std::string& unitName);

}  // namespace importer
