/// The resistance, inductance and couplings of a package's wires: the table of the companion and the
/// estimator.
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

/// The resistivity of one of kWireMaterials; nothing for any other name.
/// Units   ohm metres at room temperature
std::optional<double> ResistivityOf(std::string_view material);

/// Up to this many wires, couplings are computed by default. They take 0.7 seconds of processor time.
inline constexpr std::size_t kMostCoupledByDefault = 1000;
/// The most wires for which couplings are computed: they take 16 seconds of processor time, and a gigabyte
/// when a circuit has all couplings.
inline constexpr std::size_t kMostCoupled = 5000;

struct WireCost {
  WireRow Wire;
  WireImpedance Impedance;
  std::string Nearest;      ///< the wire that it couples with most, "A:B" for a stitch; empty when unknown
  std::optional<double> K;  ///< the coupling with that wire
};

struct WireCosts {
  std::vector<WireCost> Rows;
  bool Coupled = false;             ///< couplings were computed
  std::vector<Coupling> Couplings;  ///< at least as large as asked for
  std::size_t LeftOut = 0;          ///< number of smaller ones
  double LargestLeftOut = 0.0;      ///< absolute value
};

/// The wires as conductors, with the diameter and the frequency of the settings.
/// Units   `plane` in file units
BondWires ConductorsOf(const std::vector<WireLoop>& loops, const model::WireBondSettings& settings,
                       const LengthUnit& unit, double resistivity, std::optional<double> plane = {});

/// The costs of the wires, one for each loop. Computes couplings only when `leastCoupling` is given, and
/// keeps those of at least this size.
WireCosts CostsOf(const model::Package& package, const std::vector<WireLoop>& loops, const BondWires& wires,
                  std::optional<double> leastCoupling);

/// The same costs, with only the couplings of at least this size.
WireCosts Reduced(WireCosts costs, double leastCoupling);

/// The first wire whose costs do not fit the table's numbers.
std::optional<std::size_t> WireWithoutCost(const WireCosts& costs);

}  // namespace analysis
