#include "analysis/wire_costs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace analysis {

namespace {

void AddCouplings(const Inductances& inductances, double least, const std::vector<WireLoop>& loops,
                  WireCosts& costs) {
  Couplings couplings = inductances.Couple(least);
  for (std::size_t wire = 0; wire < costs.Rows.size(); ++wire) {
    const Neighbour& nearest = couplings.Nearest[wire];
    if (nearest.Wire == Neighbour::kNone) continue;
    costs.Rows[wire].Nearest = loops[nearest.Wire].Name;
    costs.Rows[wire].K = nearest.K;
  }
  costs.Coupled = true;
  costs.Couplings = std::move(couplings.Kept);
  costs.LeftOut = costs.Rows.size() * (costs.Rows.size() - 1) / 2 - costs.Couplings.size();
  costs.LargestLeftOut = couplings.LargestLeftOut;
}

}  // namespace

std::optional<double> ResistivityOf(std::string_view material) {
  for (const model::WireMaterial& known : model::kWireMaterials)
    if (material == known.Name) return known.Resistivity;
  return std::nullopt;
}

BondWires ConductorsOf(const std::vector<WireLoop>& loops, const model::WireBondSettings& settings,
                       const LengthUnit& unit, double resistivity, std::optional<double> plane) {
  BondWires wires{.Axes = {},
                  .Conductor = {double(settings.WireDiameter) / unit.Mils / 2.0 * unit.Metres, resistivity},
                  .Frequency = double(settings.Frequency),
                  .Plane = {}};
  if (plane) wires.Plane = *plane * unit.Metres;
  for (const WireLoop& loop : loops) {
    std::vector<glm::dvec3>& axis = wires.Axes.emplace_back();
    for (const glm::dvec3& point : loop.Points) axis.push_back(unit.Metres * point);
  }
  return wires;
}

WireCosts CostsOf(const model::Package& package, const std::vector<WireLoop>& loops, const BondWires& wires,
                  std::optional<double> leastCoupling) {
  const Inductances inductances(wires);
  WireCosts costs;
  for (WireRow& row : MeasureLengths(package, loops))
    costs.Rows.push_back({.Wire = std::move(row),
                          .Impedance = inductances.Wires()[costs.Rows.size()],
                          .Nearest = {},
                          .K = {}});
  if (leastCoupling && !loops.empty()) AddCouplings(inductances, *leastCoupling, loops, costs);
  return costs;
}

WireCosts Reduced(WireCosts costs, double leastCoupling) {
  const auto small = [leastCoupling](const Coupling& pair) { return std::fabs(pair.K) < leastCoupling; };
  for (const Coupling& pair : costs.Couplings)
    if (small(pair)) costs.LargestLeftOut = std::max(costs.LargestLeftOut, std::fabs(pair.K));
  costs.LeftOut += std::erase_if(costs.Couplings, small);
  return costs;
}

std::optional<std::size_t> WireWithoutCost(const WireCosts& costs) {
  // Tables show singles, in millimetres, milliohms and nanohenries.
  constexpr double kLargest = double(std::numeric_limits<float>::max()) * 1e-9;
  const auto found = std::find_if(costs.Rows.begin(), costs.Rows.end(), [](const WireCost& wire) {
    const WireImpedance& impedance = wire.Impedance;
    return !(impedance.Inductance > 0.0 && impedance.Inductance < kLargest &&
             impedance.Resistance < kLargest && impedance.Length < kLargest);
  });
  if (found == costs.Rows.end()) return std::nullopt;
  return static_cast<std::size_t>(found - costs.Rows.begin());
}

}  // namespace analysis
