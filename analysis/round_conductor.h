/// The resistance and the internal inductance of a round wire at any frequency.
#pragma once

namespace analysis {

/// What a round wire is made of.
struct RoundConductor {
  double Radius = 0.0;       ///< metres, above 0
  double Resistivity = 0.0;  ///< ohm metres, above 0
};

/// Of a metre of wire.
struct InternalImpedance {
  double Resistance = 0.0;  ///< ohms
  double Inductance = 0.0;  ///< henry
};

/// For direct current: 1 / (conductivity pi radius^2) and the magnetic constant / 8 pi.
/// Range   any frequency from 0, hertz; another conductor nearby, which would crowd the current to one side,
///         does not count
/// Source  Lord Rayleigh, Philosophical Magazine 21 (1886) 381; S. Ramo, J. R. Whinnery, T. Van Duzer,
/// "Fields
///         and Waves in Communication Electronics", round wires: q I0(q) / (2 I1(q)) times the resistance for
///         direct current, with q = (1 + j) radius / skin depth
InternalImpedance ImpedanceOf(const RoundConductor& conductor, double frequency);

}  // namespace analysis
