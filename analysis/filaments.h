/// The mutual inductance of straight thin conductors in any position, from which that of every wire is
/// summed.
#pragma once

#include <glm/vec3.hpp>

namespace analysis {

/// A straight piece of a conductor; its current runs from A to B.
struct Filament {
  glm::dvec3 A{}, B{};
};

/// What the inductance of a filament needs again for every other one.
struct FilamentFrame {
  explicit FilamentFrame(const Filament& filament);

  glm::dvec3 Start, Middle;
  glm::dvec3 Along;  ///< of length 1; 0 where the filament has no length
  double Length;
};

/// Neumann's double integral over both filaments, with the distance R of two points replaced by
/// sqrt(R^2 + radius^2): the mutual partial inductance of two pieces of round wire, and with one filament
/// given twice the external self-inductance of a straight piece. Units   metres, henry Needs   radius > 0
/// Returns 0 for a filament without length
/// Source  G. A. Campbell, "Mutual inductances of circuits composed of straight wires", Physical Review 5
///         (1915) 452; F. W. Grover, "Inductance Calculations" (1946), chapter 7: the closed form for
///         filaments in any position, with their lines' distance d replaced by sqrt(d^2 + radius^2). E. B.
///         Rosa, Bulletin of the Bureau of Standards 4 (1908) 301: parallel filaments. Filaments at least two
///         of their own lengths apart are integrated by Gauss and Legendre's rule, to 1e-7
/// Range   radius small against the filaments' lengths; wires much shorter than the wavelength
double MutualInductance(const FilamentFrame& a, const FilamentFrame& b, double radius);

}  // namespace analysis
