#include "sheet/label_placement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <set>
#include <tuple>

namespace sheet {
namespace {

constexpr LabelRoom kRoom{{0.0, 0.0}, {100.0, 60.0}, 3.0};

bool IsUpright(Edge edge) { return edge == Edge::Top || edge == Edge::Bottom; }

/// Whether every label keeps its pitch from the next one of its edge and lies within the edge.
void ExpectClear(const std::vector<LabelPlace>& places, const LabelRoom& room) {
  for (std::size_t k = 0; k < places.size(); ++k) {
    const double high = IsUpright(places[k].At) ? room.High.x : room.High.y;
    const double low = IsUpright(places[k].At) ? room.Low.x : room.Low.y;
    EXPECT_GE(places[k].Along, low + room.Pitch / 2.0 - 1e-9);
    EXPECT_LE(places[k].Along, high - room.Pitch / 2.0 + 1e-9);
    if (k == 0 || places[k - 1].At != places[k].At) continue;
    EXPECT_GE(places[k].Along - places[k - 1].Along, room.Pitch - 1e-9) << "label " << k;
  }
}

TEST(LabelPlacement, ALabelIsWhereTheRayFromItsAnchorLeavesTheBox) {
  // From (20, 30): 20 to the left edge; upwards 30 to the top; along (1, 1) the top comes first, 30 further.
  const std::tuple<LabelWish, Edge, double> rows[] = {
      {{{20.0, 30.0}, {-1.0, 0.0}}, Edge::Left, 30.0},
      {{{20.0, 30.0}, {0.0, 1.0}}, Edge::Top, 20.0},
      {{{20.0, 30.0}, {1.0, 1.0}}, Edge::Top, 50.0},
      {{{20.0, 30.0}, {4.0, -1.0}}, Edge::Right, 10.0},
      // Without a direction the way leads away from the middle, (50, 30).
      {{{50.0, 10.0}, {}}, Edge::Bottom, 50.0}};
  for (const auto& [wish, edge, along] : rows) {
    const std::vector<LabelPlace> places = PlaceLabels({wish}, kRoom);
    ASSERT_EQ(places.size(), 1U);
    EXPECT_EQ(places[0].At, edge) << along;
    EXPECT_NEAR(places[0].Along, along, 1e-9);
  }
}

TEST(LabelPlacement, NeighboursGiveWayByTheSameAmount) {
  // Both want y = 30; a pitch of 3 leaves 28.5 and 31.5. The one that comes from below stays below.
  const std::vector<LabelPlace> places =
      PlaceLabels({{{50.0, 31.0}, {-50.0, -1.0}}, {{50.0, 29.0}, {-50.0, 1.0}}}, kRoom);
  ASSERT_EQ(places.size(), 2U);
  EXPECT_NEAR(places[0].Along, 28.5, 1e-9);
  EXPECT_NEAR(places[1].Along, 31.5, 1e-9);
  EXPECT_EQ(places[0].Wish, 1U);
}

TEST(LabelPlacement, AFullEdgeHandsLabelsAroundItsCorners) {
  // The left edge takes 60 / 3 = 20. Of 26 that all want it, the others go around the corners.
  std::vector<LabelWish> wishes;
  for (int k = 0; k < 26; ++k) wishes.push_back({{20.0, 20.0 + 0.5 * k}, {-1.0, 0.0}});
  const std::vector<LabelPlace> places = PlaceLabels(wishes, kRoom);
  EXPECT_EQ(places.size(), 26U);
  EXPECT_EQ(
      std::count_if(places.begin(), places.end(), [](const auto& place) { return place.At == Edge::Left; }),
      20);
  ExpectClear(places, kRoom);
}

TEST(LabelPlacement, NoneOverlapsAnyAndFewerShowWhereNotAllFit) {
  // 2 * (100 + 60) / 3 = 106 places, as 33 + 33 + 20 + 20.
  EXPECT_EQ(kRoom.Capacity(), 106U);
  std::mt19937 random(7);
  std::uniform_real_distribution<double> x(0.0, 100.0), y(0.0, 60.0), way(-1.0, 1.0);
  for (const std::size_t count : {1U, 30U, 90U, 106U, 107U, 2250U, 32000U}) {
    std::vector<LabelWish> wishes;
    for (std::size_t k = 0; k < count; ++k)
      wishes.push_back({{x(random), y(random)}, {way(random), way(random)}});
    const std::vector<LabelPlace> places = PlaceLabels(wishes, kRoom);
    EXPECT_EQ(places.size(), std::min<std::size_t>(count, 106));
    ExpectClear(places, kRoom);
    std::set<std::size_t> shown;
    for (const LabelPlace& place : places) shown.insert(place.Wish);
    EXPECT_EQ(shown.size(), places.size()) << "each at most once";
  }
}

TEST(LabelPlacement, LeadersOfAFanDoNotCross) {
  // Rays from the middle, some ending near it, some near the box.
  std::vector<LabelWish> wishes;
  for (int k = 0; k < 60; ++k) {
    const double angle = 2.0 * std::numbers::pi * k / 60.0;
    const glm::dvec2 way(std::cos(angle), std::sin(angle));
    wishes.push_back({glm::dvec2(50.0, 30.0) + way * (k % 3 == 0 ? 8.0 : 25.0), way});
  }
  const std::vector<LabelPlace> places = PlaceLabels(wishes, kRoom);
  ASSERT_EQ(places.size(), 60U);
  const auto side = [](const glm::dvec2& a, const glm::dvec2& b, const glm::dvec2& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
  };
  for (const LabelPlace& one : places)
    for (const LabelPlace& two : places) {
      const glm::dvec2 a = wishes[one.Wish].Anchor, b = KneeOf(one, kRoom);
      const glm::dvec2 c = wishes[two.Wish].Anchor, d = KneeOf(two, kRoom);
      EXPECT_FALSE(side(a, b, c) * side(a, b, d) < 0.0 && side(c, d, a) * side(c, d, b) < 0.0)
          << one.Wish << " and " << two.Wish;
    }
}

}  // namespace
}  // namespace sheet
