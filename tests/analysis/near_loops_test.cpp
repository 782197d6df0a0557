#include "analysis/near_loops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <map>
#include <random>
#include <utility>
#include <vector>

#include "analysis/segment_distance.h"

namespace analysis {
namespace {

// Compares the search with an exhaustive one, by another formula.

double ToSegment(const glm::dvec3& p, const Segment& s) {
  const glm::dvec3 along = s.B - s.A;
  const double squared = glm::dot(along, along);
  const double part = squared == 0.0 ? 0.0 : std::clamp(glm::dot(p - s.A, along) / squared, 0.0, 1.0);
  return glm::distance(p, s.A + part * along);
}

/// The distance between the interiors, by the two equations of the common perpendicular, else from one of the
/// four ends.
double OfPieces(const Segment& a, const Segment& b) {
  const double ends = std::min({ToSegment(a.A, b), ToSegment(a.B, b), ToSegment(b.A, a), ToSegment(b.B, a)});
  const glm::dvec3 u = a.B - a.A, v = b.B - b.A, w = a.A - b.A;
  const double uu = glm::dot(u, u), vv = glm::dot(v, v), uv = glm::dot(u, v), uw = glm::dot(u, w),
               vw = glm::dot(v, w);
  const double determinant = uu * vv - uv * uv;
  if (determinant <= 1e-12 * uu * vv) return ends;
  const double s = (uv * vw - vv * uw) / determinant;
  const double t = (uu * vw - uv * uw) / determinant;
  if (s < 0.0 || s > 1.0 || t < 0.0 || t > 1.0) return ends;
  return std::min(ends, glm::distance(a.A + s * u, b.A + t * v));
}

double PlainDistance(const LoopOfNet& a, const LoopOfNet& b) {
  double least = HUGE_VAL;
  for (std::size_t i = 0; i + 1 < a.Points.size(); ++i)
    for (std::size_t j = 0; j + 1 < b.Points.size(); ++j)
      least = std::min(least, OfPieces({a.Points[i], a.Points[i + 1]}, {b.Points[j], b.Points[j + 1]}));
  return least;
}

class LoopMaker {
 public:
  std::vector<LoopOfNet> Make(std::uint32_t count) {
    std::vector<LoopOfNet> loops;
    for (std::uint32_t i = 0; i < count; ++i) {
      LoopOfNet loop{.Points = {}, .Net = i % 160, .Pads = {i, i % 7 == 0 ? i / 2 : i}};
      switch (i % 6) {
        case 0:
          Crook(loop);
          break;
        case 1: {  // beside the previous loop, or its first piece above that one's
          const glm::dvec3 by = i / 6 % 4 == 0 ? 0.5 * (loops.back().Points[1] - loops.back().Points[0])
                                               : 0.25 * double(i / 6 % 4) * glm::dvec3(1.0, 1.0, 0.5);
          for (glm::dvec3& point : loop.Points = loops.back().Points) point += by;
          break;
        }
        case 2:  // straight through the middle of the second piece of the previous loop
          Crossing(loops.back(), loop);
          break;
        case 3:  // a point
          loop.Points.fill(At());
          break;
        case 4:  // straight, and back along itself
          Crook(loop);
          for (std::size_t k = 2; k < loop.Points.size(); ++k) loop.Points[k] = loop.Points[k % 2];
          break;
        default:  // very nearly along the previous loop
          loop.Points = loops.back().Points;
          for (std::size_t k = 0; k < loop.Points.size(); ++k) loop.Points[k][2] += 1e-7 * double(k + 1);
      }
      loops.push_back(loop);
    }
    return loops;
  }

 private:
  glm::dvec3 At() {
    const auto coordinate = [this] { return double(random_() >> 20) / 64; };
    const double x = coordinate(), y = coordinate();
    return {x, y, coordinate() / 8.0};
  }
  void Crook(LoopOfNet& loop) {
    const glm::dvec3 start = At(), end = start + 0.2 * At();
    for (std::size_t k = 0; k < loop.Points.size(); ++k) {
      loop.Points[k] = start + double(k) / 6.0 * (end - start);
      loop.Points[k][2] += double(random_() % 64) / 16.0;
    }
  }
  void Crossing(const LoopOfNet& other, LoopOfNet& loop) {
    const glm::dvec3 centre = 0.5 * (other.Points[1] + other.Points[2]);
    const glm::dvec3 away{double(random_() % 9) - 4.0, 1.5, 0.25};
    for (std::size_t k = 0; k < loop.Points.size(); ++k) loop.Points[k] = centre + (k < 3 ? -away : away);
  }

  std::mt19937 random_{20};
};

TEST(NearLoops, FindsWhatAnExhaustiveSearchFinds) {
  constexpr double kReach = 0.4;
  constexpr double kNear = 1e-9;
  const std::vector<LoopOfNet> loops = LoopMaker().Make(400);
  std::map<std::pair<std::uint32_t, std::uint32_t>, double> inReach;
  std::vector<double> nearest(loops.size(), HUGE_VAL);
  for (std::uint32_t i = 0; i < loops.size(); ++i) {
    for (std::uint32_t j = i + 1; j < loops.size(); ++j) {
      if (!AreCompared(loops[i], loops[j])) continue;
      const double distance = PlainDistance(loops[i], loops[j]);
      if (distance <= kReach) inReach[{i, j}] = distance;
      nearest[i] = std::min(nearest[i], distance);
      nearest[j] = std::min(nearest[j], distance);
    }
  }
  ASSERT_GT(inReach.size(), 80U);

  const std::vector<LoopPair> found = FindNearLoops(loops, kReach);
  std::vector<double> foundNearest(loops.size(), HUGE_VAL);
  std::size_t foundInReach = 0;
  double before = 0.0;
  for (const LoopPair& pair : found) {
    const LoopOfNet& first = loops[pair.First];
    const LoopOfNet& second = loops[pair.Second];
    ASSERT_LT(pair.First, pair.Second);
    ASSERT_TRUE(AreCompared(first, second));
    ASSERT_NEAR(pair.Distance, PlainDistance(first, second), kNear) << pair.First << " " << pair.Second;
    ASSERT_LE(before, pair.Distance);
    LoopOfNet where;
    where.Points.fill(pair.Where);
    for (const LoopOfNet* loop : {&first, &second})
      ASSERT_NEAR(PlainDistance(where, *loop), pair.Distance / 2.0, kNear);
    before = pair.Distance;
    foundInReach += inReach.count({pair.First, pair.Second});
    for (const std::uint32_t loop : {pair.First, pair.Second})
      foundNearest[loop] = std::min(foundNearest[loop], pair.Distance);
  }
  EXPECT_EQ(foundInReach, inReach.size());
  for (std::size_t i = 0; i < loops.size(); ++i) ASSERT_NEAR(foundNearest[i], nearest[i], kNear) << i;
  EXPECT_LT(FindNearLoops(loops, -1.0).size(), loops.size() + 1) << "at most one pair for each loop";
  EXPECT_TRUE(FindNearLoops({}, 1.0).empty());
  EXPECT_TRUE(FindNearLoops({LoopOfNet{}}, 1.0).empty());
}

// A loop's inner points are ends of two pieces each, so the loops above cannot show that an end is left out.
TEST(SegmentDistance, CountsEachOfTheFourEnds) {
  // Slanting, so that the common perpendicular of the lines lies elsewhere.
  const glm::dvec3 foot(5.0, 0.0, 0.0), end(5.0, 1.0, 0.0), away(9.0, 9.0, 0.0);
  const Segment lying{{0.0, 0.0, 0.0}, {10.0, 0.0, 0.0}};
  for (const Segment& standing : {Segment{end, away}, Segment{away, end}}) {
    for (const bool swapped : {false, true}) {
      const Nearness near = swapped ? NearestPoints(standing, lying) : NearestPoints(lying, standing);
      EXPECT_EQ(near.Distance, 1.0);
      EXPECT_EQ(swapped ? near.OnSecond : near.OnFirst, foot);
      EXPECT_EQ(swapped ? near.OnFirst : near.OnSecond, end);
    }
  }
}

}  // namespace
}  // namespace analysis
