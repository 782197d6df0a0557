#include "analysis/conductor_impedance.h"

#include <cmath>
#include <complex>
#include <numbers>

namespace analysis {

namespace {

using Complex = std::complex<double>;

constexpr double kVacuum = 4e-7 * std::numbers::pi;  ///< the magnetic constant, henry per metre

/// (q I0(q) / (2 I1(q)) - 1) / q^2. No step overflows, and small q lose no digits.
/// Source  M. Abramowitz, I. A. Stegun, "Handbook of Mathematical Functions" (1964), 9.1.73: the quotient of
///         two Bessel functions as a continued fraction
Complex ByContinuedFraction(Complex squaredQ) {
  // After |q| steps each further step gains more than a bit.
  const int steps = 40 + 2 * static_cast<int>(std::sqrt(std::abs(squaredQ)));
  Complex tail = 0.0;
  for (int k = steps; k >= 2; --k) tail = squaredQ / (2.0 * k + tail);
  return 0.5 / (squaredQ == Complex{} ? Complex{4.0} : squaredQ / tail);
}

/// The Bessel function I of this order, divided by e^q / sqrt(2 pi q), for large q.
/// Source  the same book, 9.7.1
Complex Scaled(double order, Complex q) {
  Complex term = 1.0;
  Complex sum = term;
  for (int k = 1; k <= 12; ++k) {
    const double odd = 2.0 * k - 1.0;
    term *= -(4.0 * order * order - odd * odd) / (8.0 * k * q);
    sum += term;
  }
  return sum;
}

}  // namespace

InternalImpedance ImpedanceOf(const RoundConductor& conductor, double frequency) {
  const double area = std::numbers::pi * conductor.Radius * conductor.Radius;
  const double direct = conductor.Resistivity / area;
  const double angular = 2.0 * std::numbers::pi * frequency;
  // q^2 is imaginary: the angular frequency times this.
  const double perAngular = kVacuum * conductor.Radius * conductor.Radius / conductor.Resistivity;
  const Complex squaredQ(0.0, angular * perAngular);
  // From here on the asymptotic series is exact to the last digit of a double.
  constexpr double kLarge = 60.0;
  const Complex q = std::sqrt(squaredQ);
  const Complex part = std::abs(q) < kLarge ? ByContinuedFraction(squaredQ)
                                            : (q * Scaled(0.0, q) / (2.0 * Scaled(1.0, q)) - 1.0) / squaredQ;
  // The inductance is the imaginary part of direct * part * q^2, divided by the angular frequency. The
  // frequency may be 0, so the formula cancels it.
  return {direct * (1.0 + (part * squaredQ).real()), direct * perAngular * part.real()};
}

}  // namespace analysis
