#include "analysis/conductor_impedance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace analysis {
namespace {

using Complex = std::complex<double>;
using std::numbers::pi;

constexpr double kGold = 2.21e-8;

/// The modified Bessel function I of an integer order over e^q, by Bessel's integral: the integrand is
/// periodic, so the trapezoid rule gains digits with every point.
Complex ScaledBessel(int order, Complex q) {
  constexpr int kPoints = 20000;
  Complex sum = 0.0;
  for (int k = 0; k < kPoints; ++k) {
    const double angle = 2.0 * pi * k / kPoints;
    sum += std::exp(q * (std::cos(angle) - 1.0)) * std::cos(order * angle);
  }
  return sum / double(kPoints);
}

TEST(RoundConductorTest, ResistanceAndInductanceAreBesselsSolutionFromOneHertzTo20Gigahertz) {
  for (const double radius : {6.35e-6, 12.7e-6, 50e-6})
    for (double frequency = 1.0; frequency <= 2e10; frequency *= std::pow(2e10, 0.05)) {
      const double depth = std::sqrt(kGold / (pi * frequency * 4e-7 * pi));
      const Complex q = Complex(1.0, 1.0) * radius / depth;
      const Complex exact =
          kGold / (pi * radius * radius) * q / 2.0 * ScaledBessel(0, q) / ScaledBessel(1, q);
      const InternalImpedance found = ImpedanceOf({radius, kGold}, frequency);
      EXPECT_NEAR(found.Resistance, exact.real(), 1e-9 * exact.real()) << radius << " " << frequency;
      // At low frequencies the integral's imaginary part has few digits.
      const double inductance = exact.imag() / (2.0 * pi * frequency);
      EXPECT_NEAR(found.Inductance, inductance, std::max(1e-9, 1e-6 / std::norm(q)) * inductance)
          << frequency;
    }
}

TEST(RoundConductorTest, HoldsForDirectCurrentAndVeryHighFrequencies) {
  // 2.21e-8 / (pi 12.7e-6^2) = 43.615 ohm a metre; 4e-7 pi / (8 pi) = 50 nH a metre.
  const InternalImpedance direct = ImpedanceOf({12.7e-6, kGold}, 0.0);
  EXPECT_NEAR(direct.Resistance, 43.615, 0.001);
  EXPECT_NEAR(direct.Inductance, 50e-9, 1e-15);
  // Only the skin conducts, as a plate as wide as the circumference: resistivity / (2 pi radius depth).
  const double frequency = 1e30;
  const double depth = std::sqrt(kGold / (pi * frequency * 4e-7 * pi));
  const double wall = kGold / (2.0 * pi * 12.7e-6 * depth);
  EXPECT_NEAR(ImpedanceOf({12.7e-6, kGold}, frequency).Resistance / wall, 1.0, 1e-6);
}

}  // namespace
}  // namespace analysis
