/// The resistance and the partial inductance of bond wires, and how they couple.
#pragma once

#include <cstddef>
#include <cstdint>
#include <glm/vec3.hpp>
#include <optional>
#include <vector>

#include "analysis/filaments.h"
#include "analysis/round_conductor.h"

namespace analysis {

/// Wires of one kind, metres and hertz.
struct BondWires {
  std::vector<std::vector<glm::dvec3>> Axes;  ///< from start to end, as the currents run
  RoundConductor Conductor;
  double Frequency = 0.0;
  std::optional<double> Plane;  ///< the height of a conducting plane, which no point of a wire lies below
};

/// Of one wire alone.
struct WireImpedance {
  double Length = 0.0;
  double DirectResistance = 0.0, Resistance = 0.0;  ///< for direct current, at the frequency; ohms
  double Inductance = 0.0;                          ///< at the frequency, henry
};

/// M / sqrt(L1 L2) of two wires, below 0 where their currents run against each other.
struct Coupling {
  std::uint32_t First = 0, Second = 0;  ///< First < Second
  double K = 0.0;
};

/// Of a wire the one that it couples with most, the first of equals.
struct Neighbour {
  static constexpr std::uint32_t kNone = UINT32_MAX;
  std::uint32_t Wire = kNone;
  double K = 0.0;
};

struct Couplings {
  std::vector<Coupling> Kept;      ///< those of at least the size asked for, in order
  std::vector<Neighbour> Nearest;  ///< of each wire
  double LargestLeftOut = 0.0;     ///< absolute; 0 where all are kept
};

/// The inductances of a package's wires.
///
/// The external part is Neumann's double integral over the wires' axes (see MutualInductance), the internal
/// part that of a round conductor; a conducting plane adds the wires' images, which carry the currents back.
/// Source  A. E. Ruehli, "Inductance calculations in a complex integrated circuit environment", IBM Journal
/// of
///         Research and Development 16 (1972) 470: partial inductances
/// Range   wires much shorter than the wavelength, so 20 GHz for 1 mm; the field's crowding where wires
/// nearly
///         touch does not count
class Inductances {
 public:
  /// Needs   a radius and a resistivity above 0, two points in each axis
  explicit Inductances(const BondWires& wires);

  /// Returns not finite numbers where a wire's size is beyond what doubles can square
  const std::vector<WireImpedance>& Wires() const { return impedances_; }

  /// The coupling of each pair; takes a microsecond or two a pair. `least` is the smallest that is kept.
  Couplings Couple(double least) const;

 private:
  using Pieces = std::vector<FilamentFrame>;

  double External(std::size_t first, std::size_t second) const;
  double CouplingOf(std::size_t first, std::size_t second) const;
  class Search;

  double radius_;
  std::vector<Pieces> wires_;
  std::vector<Pieces> images_;  ///< empty without a plane
  std::vector<WireImpedance> impedances_;
};

}  // namespace analysis
