/// What the wires of a package cost: the table that the companion and the estimator show.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/inductance.h"
#include "analysis/lengths.h"
#include "analysis/units.h"
#include "model/wire_bond_settings.h"

namespace analysis {

/// The resistivity of a wire material by its name in the settings, "Au", "Al" or "Cu".
/// Units   ohm metres at room temperature
std::optional<double> ResistivityOf(std::string_view material);

/// The couplings of so many wires are worked out without being asked for: about a second.
inline constexpr std::size_t kCoupledUnasked = 1000;
/// And of no more than so many at all: about half a minute, and a gigabyte where all are written.
inline constexpr std::size_t kMostCoupled = 5000;

struct WireCost {
  WireRow Wire;
  WireImpedance Impedance;
  std::string Nearest;  ///< the wire that it couples with most, "A:B" for a stitch; empty where none is known
  std::optional<double> K;  ///< and that coupling
};

struct WireCosts {
  std::vector<WireCost> Rows;
  bool Coupled = false;             ///< false where no couplings were worked out
  std::vector<Coupling> Couplings;  ///< those of at least the size asked for
  std::size_t LeftOut = 0;          ///< how many are smaller
  double LargestLeftOut = 0.0;
};

/// The wires as conductors, of the settings' diameter and at its frequency.
/// Units   `plane` in file units
BondWires ConductorsOf(const std::vector<WireLoop>& loops, const model::WireBondSettings& settings,
                       const LengthUnit& unit, double resistivity, std::optional<double> plane = {});

/// The costs of the wires, which are those of the loops. Without `leastCoupling` there are no couplings.
WireCosts CostsOf(const model::Package& package, const std::vector<WireLoop>& loops, const BondWires& wires,
                  std::optional<double> leastCoupling);

/// The same with the couplings of at least this size alone.
WireCosts Reduced(WireCosts costs, double leastCoupling);

/// The first wire whose size is beyond what numbers can hold.
std::optional<std::size_t> WireWithoutCost(const WireCosts& costs);

}  // namespace analysis
