/// The resistance and the internal inductance of a round wire at any frequency.
#pragma once

namespace analysis {

/// Thickness and material of a round wire.
struct RoundConductor {
  double Radius = 0.0;       ///< metres, above 0
  double Resistivity = 0.0;  ///< ohm metres, above 0
};

/// The impedance of a metre of wire.
struct InternalImpedance {
  double Resistance = 0.0;  ///< ohms
  double Inductance = 0.0;  ///< henry
};

/// The impedance inside a round wire: its resistance for direct current, resistivity / (pi radius^2), times
/// q I0(q) / (2 I1(q)) with q = (1 + j) radius / skin depth. For direct current the inductance is the
/// magnetic constant / (8 pi).
///
/// Range   any frequency from 0, in hertz, without proximity effect: no other conductor is so near that it
///         crowds the current to one side
/// Source  Lord Rayleigh, Philosophical Magazine 21 (1886) 381; S. Ramo, J. R. Whinnery, T. Van Duzer,
///         "Fields and Waves in Communication Electronics", round wires
InternalImpedance ImpedanceOf(const RoundConductor& conductor, double frequency);

}  // namespace analysis
