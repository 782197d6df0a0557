/// The clearance between wires of different nets.
#pragma once

#include <cstddef>
#include <glm/vec3.hpp>
#include <optional>
#include <string>
#include <vector>

#include "analysis/near_loops.h"
#include "analysis/nets.h"
#include "analysis/wire_loops.h"

namespace analysis {

enum class Finding { None, BelowLimit, Touching };

/// Two wires and their clearance, in file units.
struct ClearanceRow {
  std::size_t First = 0, Second = 0;  ///< the numbers of their loops
  std::string Name, Other;
  std::string Net, OtherNet;
  double Clearance = 0.0;  ///< from surface to surface; not above 0 where they touch
  glm::dvec3 Where{};      ///< halfway between the two nearest points
  Finding Kind = Finding::None;
};

struct Clearances {
  double WireDiameter = 0.0;
  std::optional<double> Limit;
  std::size_t Wires = 0;
  std::vector<ClearanceRow> Rows;  ///< worst first

  std::size_t Count(Finding kind) const;
};

/// Lengths in file units.
struct ClearanceRules {
  NetRule Nets = {};
  double WireDiameter = 0.0;
  std::optional<double> Limit = {};  ///< wires with less clearance are findings too
  bool All = false;                  ///< every finding, not only each wire's nearest other one
};

/// The loops for the comparison, with numbers in place of the names of their nets and pads.
std::vector<LoopOfNet> LoopsByNumber(const std::vector<WireLoop>& loops, const NetRule& rule);

/// For every wire the pair with its nearest other one; with `All` every other finding too.
Clearances MeasureClearances(const std::vector<WireLoop>& loops, const ClearanceRules& rules);

}  // namespace analysis
