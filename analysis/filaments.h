/// The mutual inductance of straight thin conductors in any position. A wire's inductance is a sum of these.
#pragma once

#include <glm/vec3.hpp>

namespace analysis {

/// A straight piece of a conductor; its current runs from A to B.
struct Filament {
  glm::dvec3 A{}, B{};
};

/// A filament with the values that all its mutual inductances share.
struct FilamentFrame {
  explicit FilamentFrame(const Filament& filament);

  glm::dvec3 Start, Middle;
  glm::dvec3 Along;  ///< unit vector; 0 where the filament has no length
  double Length;
};

/// The mutual partial inductance of two pieces of round wire: Neumann's double integral over their axes, with
/// the distance R of two points replaced by sqrt(R^2 + radius^2). A filament with itself gives the external
/// self-inductance of a straight piece.
///
/// Units   metres, henry
/// Needs   radius > 0
/// Returns 0 for a filament without length
/// Source  G. A. Campbell, "Mutual inductances of circuits composed of straight wires", Physical Review 5
///         (1915) 452, and F. W. Grover, "Inductance Calculations" (1946), chapter 7: filaments in any
///         position in closed form, here with the distance d of their lines replaced by
///         sqrt(d^2 + radius^2). E. B. Rosa, Bulletin of the Bureau of Standards 4 (1908) 301: parallel
///         filaments. Filaments that are two or more of their lengths apart: the Gauss-Legendre rule,
///         to 1e-7
/// Range   a radius small against the filaments' lengths; wires much shorter than the wavelength
double MutualInductance(const FilamentFrame& a, const FilamentFrame& b, double radius);

}  // namespace analysis
