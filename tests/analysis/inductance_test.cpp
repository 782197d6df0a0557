#include "analysis/inductance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "analysis/coupling_matrix.h"

namespace analysis {
namespace {

using glm::dvec3;
using Axis = std::vector<dvec3>;

constexpr RoundConductor kOneMilGold{12.7e-6, 2.21e-8};

/// A loop's size in millimetres.
struct Shape {
  double Plan, StartHeight, LoopHeight, Extension;
};

/// The seven points of a loop along x that ends at height 0.
Axis Loop(const Shape& s, double y = 0.0) {
  const double h = s.LoopHeight;
  const double e = s.Extension;
  Axis axis;
  for (const auto& [x, up] : {std::pair{0.0, 0.0},
                              {0.0, 0.4 * h},
                              {0.05 * e, 0.6 * h},
                              {0.1 * e, 0.8 * h},
                              {0.3 * e, h},
                              {e, h},
                              {s.Plan, -s.StartHeight}})
    axis.push_back(1e-3 * dvec3(x, y, s.StartHeight + up));
  return axis;
}

Axis Straight(double millimetres, double y = 0.0) {
  return {{0.0, 1e-3 * y, 1e-3}, {1e-3 * millimetres, 1e-3 * y, 1e-3}};
}

Inductances Of(std::vector<Axis> axes, std::optional<double> plane = {}) {
  return Inductances({std::move(axes), kOneMilGold, 0.0, plane});
}

constexpr Shape kFirstLoop{1.578645, 0.2794, 0.2794, 0.2794};

TEST(InductanceTest, StraightWiresFollowGroversFormula) {
  const struct {
    double Length, Nanohenry, Milliohms;
  } rows[] = {{1.0, 0.8644, 43.61}, {3.0, 3.2473, 130.84}, {6.5, 8.0380, 283.50}};
  for (const auto& row : rows) {
    const WireImpedance wire = Of({Straight(row.Length)}).Wires().front();
    EXPECT_NEAR(wire.Inductance * 1e9, row.Nanohenry, 5e-5);
    EXPECT_NEAR(wire.DirectResistance * 1e3, row.Milliohms, 5e-3);
    EXPECT_NEAR(wire.Length * 1e3, row.Length, 1e-12);
  }
}

TEST(InductanceTest, LoopsAgreeWithAFieldSolver) {
  const struct {
    Shape Loop;
    std::optional<double> Plane;  ///< millimetres
    double Nanohenry;
  } rows[] = {{kFirstLoop, {}, 1.7393},
              {{0.94, 0.3, 0.3, 0.3}, {}, 1.1277},
              {{4.48, 0.3, 0.3, 0.3}, {}, 5.4021},
              {{3.02, 0.3, 0.1, 0.5}, {}, 3.3308},
              {{0.6, 0.3, 0.15, 0.2}, {}, 0.6614},
              {kFirstLoop, 0.0, 1.4123},
              {kFirstLoop, -0.1, 1.4942}};
  for (const auto& row : rows) {
    const auto plane = row.Plane ? std::optional(*row.Plane * 1e-3) : std::nullopt;
    const double found = Of({Loop(row.Loop)}, plane).Wires().front().Inductance * 1e9;
    EXPECT_NEAR(found, row.Nanohenry, 5e-3 * row.Nanohenry);
  }
}

TEST(InductanceTest, CouplingIsTheMutualOverBothAndHasTheSignOfTheCurrents) {
  // Two wires of 2 mm side by side at 100 um: M 1.0923 nH.
  Axis against = Straight(2.0, 0.1);
  std::swap(against.front(), against.back());
  for (const auto& [other, sign] : {std::pair{Straight(2.0, 0.1), 1.0}, {against, -1.0}}) {
    const Inductances wires = Of({Straight(2.0), other});
    const std::vector<Coupling> kept = wires.Couple(0.0).Kept;
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_NEAR(kept[0].K * wires.Wires()[0].Inductance * 1e9, sign * 1.0923, 5e-5);
  }
}

TEST(InductanceTest, NearestIsTheLargestCouplingAndSmallOnesAreLeftOut) {
  // Side by side: 0 and 1 are the closest; 2 is nearer to 1, 3 to 2, and 1 couples with 0 more than with 2.
  const Inductances wires =
      Of({Straight(2.0, 0.0), Straight(2.0, 0.1), Straight(2.0, 0.3), Straight(2.0, 0.9)});
  const Couplings all = wires.Couple(0.0);
  ASSERT_EQ(all.Kept.size(), 6U);
  EXPECT_EQ(all.LargestLeftOut, 0.0);
  const std::uint32_t nearest[] = {1, 0, 1, 2};
  for (std::size_t k = 0; k < 4; ++k) EXPECT_EQ(all.Nearest[k].Wire, nearest[k]) << k;
  const double least = all.Kept[4].K;  // of 1 and 3
  const Couplings some = wires.Couple(least);
  EXPECT_EQ(some.Kept.size(), 5U) << "only 0 and 3 couple less";
  EXPECT_EQ(some.LargestLeftOut, all.Kept[2].K);
  EXPECT_EQ(Of({Straight(1.0)}).Couple(0.0).Nearest.front().Wire, Neighbour::kNone);
}

std::vector<Axis> RandomLoops(std::size_t count) {
  std::mt19937 random(2);
  const auto part = [&random] { return std::uniform_real_distribution(0.1, 1.0)(random); };
  std::vector<Axis> axes;
  for (std::size_t k = 0; k < count; ++k)
    axes.push_back(Loop({2.0 + part(), 0.3, 0.3 * part(), 0.5 * part()}, 4.0 * part()));
  return axes;
}

TEST(CouplingMatrixTest, AllCouplingsTogetherAreAlwaysPositiveDefinite) {
  for (const std::size_t count : {1U, 2U, 100U})
    for (const std::optional<double> plane : {std::optional<double>(), std::optional(0.0)}) {
      std::vector<Axis> axes = RandomLoops(count);
      axes.push_back(axes.front());  // two wires in one place
      EXPECT_TRUE(IsPositiveDefinite(count + 1, Of(axes, plane).Couple(0.0).Kept)) << count;
    }
}

TEST(CouplingMatrixTest, WithoutSmallCouplingsTheRestMayNotBePositiveDefinite) {
  // 1 - 2 * 0.8^2 < 0 where the two outer ones do not couple, 1 - 2 * 0.7^2 > 0.
  const std::vector<Coupling> three{{0, 1, 0.8}, {0, 2, 0.5}, {1, 2, 0.8}};
  EXPECT_TRUE(IsPositiveDefinite(3, three));
  EXPECT_FALSE(IsPositiveDefinite(3, AtLeast(three, 0.6)));
  EXPECT_TRUE(IsPositiveDefinite(3, {{0, 1, 0.7}, {1, 2, 0.7}}));
  // With many other wires the sparse decomposition decides.
  EXPECT_FALSE(IsPositiveDefinite(300, AtLeast(three, 0.6)));
  EXPECT_TRUE(IsPositiveDefinite(300, three));
  // Only a limit above 0.8 drops both large ones.
  EXPECT_EQ(UsableLeast(3, three, 0.6), 0.801);
}

}  // namespace
}  // namespace analysis
