#include "analysis/filaments.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <random>

namespace analysis {
namespace {

using glm::dvec3;

constexpr double kRadius = 12.7e-6;

/// The Gauss-Legendre rule of five points; halves intervals where the sums disagree.
template <class Function>
double Integral(const Function& f, double from, double to, double tolerance, int depth = 0) {
  constexpr std::array<std::array<double, 2>, 5> kRule{{{0.0, 128.0 / 225.0},
                                                        {0.5384693101056831, 0.4786286704993665},
                                                        {-0.5384693101056831, 0.4786286704993665},
                                                        {0.9061798459386640, 0.2369268850561891},
                                                        {-0.9061798459386640, 0.2369268850561891}}};
  const auto rule = [&](double a, double b) {
    double sum = 0.0;
    for (const auto& [at, weight] : kRule) sum += weight * f((a + b) / 2.0 + at * (b - a) / 2.0);
    return sum * (b - a) / 2.0;
  };
  const double middle = (from + to) / 2.0;
  const double halves = rule(from, middle) + rule(middle, to);
  if (depth > 30 || std::fabs(halves - rule(from, to)) <= tolerance * std::fabs(halves)) return halves;
  return Integral(f, from, middle, tolerance, depth + 1) + Integral(f, middle, to, tolerance, depth + 1);
}

/// Neumann's double integral, without a closed form.
double BruteForce(const Filament& a, const Filament& b) {
  const dvec3 alongA = a.B - a.A;
  const dvec3 alongB = b.B - b.A;
  const auto overB = [&](double x) {
    const dvec3 from = a.A + x * alongA - b.A;
    const auto kernel = [&](double y) {
      const dvec3 apart = from - y * alongB;
      return 1.0 / std::sqrt(glm::dot(apart, apart) + kRadius * kRadius);
    };
    return Integral(kernel, 0.0, 1.0, 1e-10);
  };
  return 1e-7 * glm::dot(alongA, alongB) * Integral(overB, 0.0, 1.0, 1e-9);
}

class RandomPairs {
 public:
  /// The next of eleven kinds of position, in turn.
  std::array<Filament, 2> Next() {
    const Filament a{Point(), Point()};
    const dvec3 along = a.B - a.A;
    const dvec3 inside = a.A + Part() * along;
    switch (count_++ % 11) {
      case 0:  // parallel, side by side or shifted
        return {a, Moved(a, 0.1 * Point() + (Part() - 0.5) * along)};
      case 1:  // antiparallel
        return {a, Moved({a.B, a.A}, 0.3 * Point())};
      case 2:  // crossing inside both
        return {a, Crossing(inside)};
      case 3:  // an end of the one on the inside of the other
        return {a, {inside, Point()}};
      case 4:  // end to end, at an angle
        return {a, {a.B, Point()}};
      case 5:  // in line: one after the other, touching
        return {a, {a.B, a.B + Part() * along}};
      case 6:  // in line: partly the same
        return {a, {inside, inside + along}};
      case 7:  // almost parallel, and close
        return {a, {a.A + 0.02 * Point(), a.B + 0.02 * Point()}};
      case 8:  // parallel but for rounding
        return {a, {a.A + kAside, a.B + kAside + 1e-6 * std::pow(10.0, -8.0 * Part()) * Point()}};
      case 9:  // a short piece, near or far
        return {a, Moved({dvec3(), std::pow(10.0, -2.0 * Part()) * Point()}, Point())};
      default:
        return {a, {Point(), Point()}};
    }
  }

 private:
  double Part() { return std::uniform_real_distribution(0.0, 1.0)(random_); }
  /// A point in a cube of 2 mm.
  dvec3 Point() { return 2e-3 * dvec3(Part() - 0.5, Part() - 0.5, Part() - 0.5); }
  Filament Crossing(const dvec3& at) {
    const dvec3 direction = Point();
    return {at - Part() * direction, at + Part() * direction};
  }
  static Filament Moved(const Filament& a, const dvec3& by) { return {a.A + by, a.B + by}; }

  static constexpr dvec3 kAside{50e-6, -25e-6, 35e-6};

  std::mt19937 random_{1};
  int count_ = 0;
};

TEST(FilamentsTest, ClosedFormIsNeumannsIntegralInEveryPosition) {
  RandomPairs pairs;
  for (int number = 0; number < 1000; ++number) {
    const auto [a, b] = pairs.Next();
    const FilamentFrame frameA(a);
    const FilamentFrame frameB(b);
    const double expected = BruteForce(a, b);
    EXPECT_NEAR(MutualInductance(frameA, frameB, kRadius), expected, 1e-6 * std::fabs(expected)) << number;
    EXPECT_NEAR(MutualInductance(frameB, frameA, kRadius), expected, 1e-6 * std::fabs(expected)) << number;
  }
}

TEST(FilamentsTest, FilamentsWithoutLengthAndAtARightAngleDoNotCouple) {
  const FilamentFrame upright({{0.0, 0.0, 0.0}, {0.0, 0.0, 1e-3}});
  const FilamentFrame level({{0.0, 0.0, 1e-3}, {1e-3, 0.0, 1e-3}});
  const FilamentFrame point({{0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}});
  EXPECT_EQ(MutualInductance(upright, level, kRadius), 0.0);
  EXPECT_EQ(MutualInductance(upright, point, kRadius), 0.0);
}

}  // namespace
}  // namespace analysis
