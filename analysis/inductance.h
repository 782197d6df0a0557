/// The resistance and the partial inductance of bond wires, and how they couple.
#pragma once

#include <cstddef>
#include <cstdint>
#include <glm/vec3.hpp>
#include <optional>
#include <vector>

#include "analysis/conductor_impedance.h"
#include "analysis/filaments.h"

namespace analysis {

/// Wires of one material and diameter.
/// Units   metres, hertz
struct BondWires {
  std::vector<std::vector<glm::dvec3>> Axes;  ///< from start to end, as the currents run
  RoundConductor Conductor;
  double Frequency = 0.0;
  std::optional<double> Plane;  ///< height of a conducting plane; no point of a wire lies below it
};

/// The impedance of one wire.
/// Units   metres, ohms, henry
struct WireImpedance {
  double Length = 0.0;
  double DirectResistance = 0.0, Resistance = 0.0;  ///< for direct current, and at the frequency
  double Inductance = 0.0;                          ///< at the frequency
};

/// The coupling M / sqrt(L1 L2) of two wires. It is negative where their currents run in opposite directions.
struct Coupling {
  std::uint32_t First = 0, Second = 0;  ///< First < Second
  double K = 0.0;
};

/// The wire that a wire couples with most; of equal couplings the first one counts.
struct Neighbour {
  static constexpr std::uint32_t kNone = UINT32_MAX;
  std::uint32_t Wire = kNone;
  double K = 0.0;
};

/// All couplings of some wires.
struct Couplings {
  std::vector<Coupling> Kept;      ///< at least as large as asked for; in the order of the wires
  std::vector<Neighbour> Nearest;  ///< one for each wire
  double LargestLeftOut = 0.0;     ///< absolute value; 0 when all are kept
};

/// The inductances of a package's wires.
///
/// The external part is Neumann's double integral over the wires' axes (see MutualInductance), the internal
/// part that of a round conductor. A conducting plane adds the images of the wires, which carry the currents
/// back.
///
/// Source  A. E. Ruehli, "Inductance calculations in a complex integrated circuit environment", IBM
///         Journal of Research and Development 16 (1972) 470: partial inductances
/// Range   wires much shorter than the wavelength: a wire of 1 mm up to 20 GHz. The model neglects the
///         proximity effect: wires that nearly touch crowd each other's current to one side
class Inductances {
 public:
  /// Needs   a radius and a resistivity above 0, two points in each axis
  explicit Inductances(const BondWires& wires);

  /// Returns infinity or NaN for a wire so large or small that squares of its size leave the range of doubles
  const std::vector<WireImpedance>& Wires() const { return impedances_; }

  /// Computes the coupling of each pair, one or two microseconds each, and keeps those of at least `least`.
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
