#include "import/order_match.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace importer {
namespace {

using Places = std::vector<glm::dvec2>;
using Partners = std::vector<std::optional<std::size_t>>;

double Square(const glm::dvec2& a, const glm::dvec2& b) {
  return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

double SumOf(const Places& pads, const Places& leads, const Partners& partners) {
  double sum = 0.0;
  for (std::size_t i = 0; i < pads.size(); ++i)
    if (partners[i]) sum += Square(pads[i], leads[*partners[i]]);
  return sum;
}

std::vector<std::size_t> ByAngle(const Places& places) {
  std::vector<std::size_t> order(places.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return std::atan2(places[a].y, places[a].x) < std::atan2(places[b].y, places[b].x);
  });
  return order;
}

/// Tries every choice of partners for the smaller group, and every rotation of it.
double LeastSum(const Places& pads, const Places& leads) {
  const Places& few = pads.size() <= leads.size() ? pads : leads;
  const Places& many = pads.size() <= leads.size() ? leads : pads;
  const std::vector<std::size_t> fewOrder = ByAngle(few);
  const std::vector<std::size_t> manyOrder = ByAngle(many);
  double least = INFINITY;
  for (unsigned chosen = 0; chosen < 1U << many.size(); ++chosen) {
    std::vector<std::size_t> partners;
    for (std::size_t j = 0; j < many.size(); ++j)
      if (chosen >> j & 1U) partners.push_back(manyOrder[j]);
    if (partners.size() != few.size()) continue;
    for (std::size_t turn = 0; turn < few.size(); ++turn) {
      double sum = 0.0;
      for (std::size_t i = 0; i < few.size(); ++i)
        sum += Square(few[fewOrder[i]], many[partners[(i + turn) % few.size()]]);
      least = std::min(least, sum);
    }
  }
  return least;
}

std::size_t Matched(const Partners& partners) {
  return static_cast<std::size_t>(
      std::count_if(partners.begin(), partners.end(), [](const auto& p) { return p.has_value(); }));
}

void ExpectBest(const Places& pads, const Places& leads, const std::string& what) {
  const Partners partners = MatchInOrder(pads, leads);
  EXPECT_EQ(Matched(partners), std::min(pads.size(), leads.size())) << what;
  // Squares are multiples of 1e-12 and sums below 300, so that two different sums lie farther apart.
  EXPECT_NEAR(SumOf(pads, leads, partners), LeastSum(pads, leads), 4e-13) << what;
}

/// Places on a ring that is wider than high, at random angles and depths.
Places Ring(std::mt19937& random, std::size_t count, double radius) {
  std::uniform_real_distribution<double> angle(-M_PI, M_PI);
  std::uniform_real_distribution<double> depth(0.8, 1.2);
  Places places;
  for (std::size_t i = 0; i < count; ++i) {
    const double a = angle(random);
    const double r = radius * depth(random);
    // On the grid of nanometres in which the match counts.
    places.emplace_back(std::round(1.5e6 * r * std::cos(a)) / 1e6, std::round(1e6 * r * std::sin(a)) / 1e6);
  }
  return places;
}

// Coordinates are real numbers, so "every case" means every pair of numbers of pads and leads, each with many
// arrangements: on rings, and with all pads or all leads on one side, where most rotations are bad.
TEST(OrderMatch, IsBestForEachNumberUpToEightPadsAndTenLeads) {
  constexpr int kArrangements = 24;
  std::mt19937 random(1);
  for (std::size_t pads = 1; pads <= 8; ++pads) {
    for (std::size_t leads = 1; leads <= 10; ++leads) {
      for (int i = 0; i < kArrangements; ++i) {
        Places inner = Ring(random, pads, 1.0);
        Places outer = Ring(random, leads, i % 4 == 0 ? 1.0 : 3.0);
        for (glm::dvec2& place : i % 3 == 0 ? inner : outer)
          if (i % 3 != 2) place.x = std::fabs(place.x);
        ExpectBest(inner, outer,
                   std::to_string(pads) + " pads, " + std::to_string(leads) + " leads, arrangement " +
                       std::to_string(i));
      }
    }
  }
}

TEST(OrderMatch, MeetsOppositeLeadsInAnyOrderOfTheLists) {
  // A pad's own lead lies twice as far out. The sum of all products of a pad with a lead is largest when each
  // pad has its own, and so the sum of the squares is smallest. 100 more leads are far away.
  std::mt19937 random(3);
  const Places pads = Ring(random, 100, 1.0);
  Places leads = Ring(random, 100, 20.0);
  for (const glm::dvec2& pad : pads) leads.push_back(2.0 * pad);
  std::shuffle(leads.begin(), leads.end(), random);
  const Partners partners = MatchInOrder(pads, leads);
  for (std::size_t i = 0; i < pads.size(); ++i) EXPECT_EQ(leads[partners[i].value()], 2.0 * pads[i]);
}

TEST(OrderMatch, DecidesTiesTheSameWayEveryTime) {
  // One pad amid four equally near leads: the first one counter-clockwise from the left is below.
  const Places leads = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  EXPECT_EQ(MatchInOrder({{0, 0}}, leads)[0], 3U);
}

TEST(OrderMatch, LeavesTheRestWithoutPartners) {
  EXPECT_EQ(Matched(MatchInOrder({}, {{1, 0}})), 0U);
  EXPECT_EQ(Matched(MatchInOrder({{1, 0}}, {})), 0U);
  // The far pad gets no partner: the sum of the other two is 1 + 1.
  const Places pads = {{1, 0}, {0, 1}, {-9, -9}};
  const Partners partners = MatchInOrder(pads, {{2, 0}, {0, 2}});
  EXPECT_EQ(partners, (Partners{0, 1, std::nullopt}));
}

}  // namespace
}  // namespace importer
