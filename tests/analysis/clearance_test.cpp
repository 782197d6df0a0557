#include "analysis/clearance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "analysis/near_loops.h"
#include "analysis/segment_distance.h"
#include "formats/clearance_table.h"
#include "tests/temporary_folder.h"
#include "tests/yax/refusal.h"
#include "yax/options/opened_package.h"
#include "yax/options/unit.h"

namespace yax {
namespace {

/// How a package is measured: wires of 1 mil in a file in mils, loops that are straight lines.
struct How {
  std::optional<double> limit = {};
  bool all = false;
  double diameter = 1.0;
  std::string netPattern = {};
  TierLoopOptions tiers = {};
};

analysis::Clearances Measure(const std::string& text, const How& how = {}) {
  const TemporaryFolder folder;
  LoopOptions loops;
  loops.Values.BaseLoopHeight = loops.Values.StackLoopHeight = 0.0F;
  loops.Values.BaseExtension = loops.Values.StitchExtension = 0.0F;
  loops.Tiers = how.tiers;
  const OpenedPackage opened({PutFile(folder / "board.yax", text)}, loops);
  analysis::ClearanceRules rules{.WireDiameter = how.diameter, .Limit = how.limit, .All = how.all};
  if (!how.netPattern.empty()) rules.Nets.Pattern = std::regex(how.netPattern);
  return analysis::MeasureClearances(analysis::WireLoopsOf(opened.Wires()), rules);
}

/// "A B clearance" of each row, in thousandths, with a mark of the finding.
std::vector<std::string> Texts(const analysis::Clearances& report) {
  std::vector<std::string> texts;
  for (const analysis::ClearanceRow& row : report.Rows) {
    const long thousandths = std::lround(row.Clearance * 1e3);
    texts.push_back(row.Name + " " + row.Other + " " + std::to_string(thousandths) +
                    (row.Kind == analysis::Finding::Touching     ? " touching"
                     : row.Kind == analysis::Finding::BelowLimit ? " below"
                                                                 : ""));
  }
  return texts;
}
using Rows = std::vector<std::string>;

// 40 long, so everything is divided by 10 inside. The file's units count outside.
const std::string kHeader = "TECHNOLOGY WIRE_BOND\nCOMPL 40\nCOMPW 40\nCOMPZ 5\n";

std::string Wire(const std::string& name, const std::string& tier, const std::string& start,
                 const std::string& end, const std::string& heights) {
  return "CBP " + name + " 1 1 0 1 1 0 R ROUND\nSBP " + name + " 9 9 0 1 1 0 ROUND 0 " + tier + "\nWB " +
         name + " " + start + " 0 " + end + " " + heights + "\n";
}

// A runs along x at height 10. B crosses 5 above it, and its lower end, (30, -20, 15), lies 10 beside C and 5
// above it: sqrt(100 + 25) = 11.18034. A and C are 30 apart. Each less a diameter of 1.
const std::string kThreeWires = kHeader + Wire("A", "1", "10 0", "50 0", "10 10") +
                                Wire("B", "2", "30 -20", "30 20", "15 15") +
                                Wire("C", "1", "10 -30", "50 -30", "10 10");

TEST(Clearance, OfThreeWiresIsTheirDistanceLessADiameter) {
  const analysis::Clearances report = Measure(kThreeWires);
  EXPECT_EQ(Texts(report), (Rows{"A B 4000", "B C 10180"})) << "each wire's nearest, worst first";
  EXPECT_EQ(report.Wires, 3U);
  EXPECT_EQ(report.Rows.at(0).Where, (glm::dvec3{30.0, 0.0, 12.5})) << "halfway between";
  EXPECT_EQ(report.Rows.at(1).Where, (glm::dvec3{30.0, -25.0, 12.5}));
  EXPECT_NEAR(report.Rows.at(1).Clearance, std::sqrt(125.0) - 1.0, 1e-6);
}

TEST(Clearance, TellsWhatTouchesAndWhatIsBelowTheLimit) {
  const struct {
    How how;
    Rows rows;
  } cases[] = {
      {{.diameter = 5.0}, {"A B 0 touching", "B C 6180"}},
      {{.diameter = 6.0}, {"A B -1000 touching", "B C 5180"}},
      {{.limit = 4.0}, {"A B 4000", "B C 10180"}},
      {{.limit = 4.001}, {"A B 4000 below", "B C 10180"}},
      // A and C are nobody's nearest.
      {{.limit = 29.001}, {"A B 4000 below", "B C 10180 below"}},
      {{.limit = 29.001, .all = true}, {"A B 4000 below", "B C 10180 below", "A C 29000 below"}},
      {{.limit = 28.999, .all = true}, {"A B 4000 below", "B C 10180 below"}},
      {{.all = true, .diameter = 31.0}, {"A B -26000 touching", "B C -19820 touching", "A C -1000 touching"}},
  };
  for (const auto& [how, rows] : cases)
    EXPECT_EQ(Texts(Measure(kThreeWires, how)), rows) << how.limit.value_or(0.0) << " " << how.diameter;
}

TEST(Clearance, FollowsTheLoopsOfEachTier) {
  // A rises 10 from its pad and then runs straight from (10, 0, 20) to (50, 0, 10): at x = 30 it meets B.
  EXPECT_EQ(Texts(Measure(kThreeWires, {.tiers = {{{"1", {10.0F, {}}}}}})).at(0), "A B -1000 touching");
  // 20 high it passes (30, 0, 20), 5 above B and sloping by 20 in 40: 5 * cos(atan(1/2)) = 4.472 off B.
  EXPECT_EQ(Texts(Measure(kThreeWires, {.tiers = {{{"1", {20.0F, {}}}}}})).at(0), "A B 3472");
  // Level as far as x = 40, it passes 15 above B; C, of the same tier, then is farther off.
  EXPECT_EQ(Texts(Measure(kThreeWires, {.tiers = {{{"1", {20.0F, {}}}, {"1", {{}, 30.0F}}}}})).at(0),
            "A B 14000");
}

TEST(Clearance, LeavesOutWiresThatBelongTogether) {
  const std::string crossing = Wire("V_1", "1", "10 0", "50 0", "10 10") +
                               Wire("V_2", "1", "30 -20", "30 20", "10 10") +
                               Wire("X", "1", "10 -30", "50 -30", "10 10");
  EXPECT_EQ(Texts(Measure(kHeader + crossing)), (Rows{"V_1 V_2 -1000 touching", "V_2 X 9000"}));
  // V_1 is 30 off X.
  const analysis::Clearances ofNets = Measure(kHeader + crossing, {.netPattern = "^(V)_"});
  EXPECT_EQ(Texts(ofNets), (Rows{"V_2 X 9000", "V_1 X 29000"}));
  EXPECT_EQ(ofNets.Rows.at(0).Net + " " + ofNets.Rows.at(0).OtherNet, "V X");

  // Two wires to one point of the substrate; one that only comes by, 2 below it.
  const std::string shared = Wire("A", "1", "10 0", "50 0", "10 0") + Wire("B", "1", "10 9", "50 0", "10 0") +
                             Wire("C", "1", "50 -20", "50 20", "-2 -2");
  EXPECT_EQ(Texts(Measure(kHeader + shared)).size(), 2U) << "A and B with C only";

  // The stitch crosses the wires of both its pads, whose ends are elsewhere; and C, 3 below it.
  const std::string stitched = Wire("A", "1", "10 0", "50 0", "10 10") +
                               Wire("B", "1", "10 4", "50 4", "10 10") +
                               Wire("C", "1", "10 2", "50 2", "7 7") + "STCH A 30 -20 B 30 20 10 10\n";
  EXPECT_EQ(Texts(Measure(kHeader + stitched)),
            (Rows{"C A:B 2000", "A C 2606", "B C 2606"}))  // sqrt(2 * 2 + 3 * 3) - 1
      << "no A with A:B";
}

TEST(Nets, AreWholeNamesOrWhatTheFirstGroupMatches) {
  analysis::NetRule nets;
  EXPECT_EQ(analysis::NetOf(nets, "VDD_L_0"), "VDD_L_0");
  nets.Pattern = std::regex("^(V..)_|^X(Y)?");
  const std::string longName = "VDD_" + std::string(100'000, 'x');
  for (const auto& [name, net] : std::vector<std::pair<std::string, std::string>>{
           {"VDD_L_0", "VDD"}, {"aVDD_0", "aVDD_0"}, {"XY", "XY"}, {"", ""}, {longName, longName}})
    EXPECT_EQ(analysis::NetOf(nets, name), net) << name.substr(0, 20);
}

TEST(Units, AreAskedForWhereMilsMakeNoSense) {
  model::Package package;
  package.PackagePath = "small.yax";
  package.UnitScale = 10.0F;
  package.CompL = 1.9F;
  package.CompW = 1.0F;
  EXPECT_EQ(Refusal([&] { UnitOf({}, package); }), "small.yax: this looks like mm; pass --unit")
      << "19 mil is no die";
  EXPECT_STREQ(UnitOf({"mil"}, package).Name, "mil");
  package.CompW = 2.0F;
  EXPECT_STREQ(UnitOf({}, package).Name, "mil") << "20 by the longer side";
  // 1 mil is 25.4 um.
  model::WireBondSettings settings;
  settings.WireDiameter = 2.0F;
  EXPECT_DOUBLE_EQ(WireDiameterIn(UnitOf({"um"}, package), settings), 50.8);
  EXPECT_DOUBLE_EQ(WireDiameterIn(UnitOf({"mm"}, package), settings), 0.0508);
  for (const float diameter : {0.0F, -1.0F}) {
    settings.WireDiameter = diameter;
    EXPECT_NE(Refusal([&] { WireDiameterIn(UnitOf({"mm"}, package), settings); }), "");
  }
}

TEST(Clearance, IsToldInColumnsAndInJson) {
  const analysis::Clearances report = Measure(kHeader + Wire("A\xff\"", "1", "10 0", "50 0", "10 10") +
                                                  Wire("long_name", "1", "30 -20", "30 20", "15 15") +
                                                  Wire("\xC3\x84", "1", "10 -30", "50 -30", "10 10"),
                                              {.limit = 4.5});
  const analysis::LengthUnit kMil = *analysis::UnitNamed("mil");
  EXPECT_EQ(formats::ColumnsOf(report, kMil),
            "clearance_mil  wire       other        x_mil     y_mil    z_mil  finding\n"
            "       4.0000  A\xff\"        long_name  30.0000    0.0000  12.5000  below-limit\n"
            "      10.1803  long_name  \xC3\x84          30.0000  -25.0000  12.5000  ok\n"
            "# wires: 3, diameter: 1.0000 mil, touching pairs: 0, others below 4.5000 mil: 1\n");
  const auto json = nlohmann::json::parse(formats::JsonOf(report, kMil));
  EXPECT_EQ(json["unit"], "mil");
  EXPECT_EQ(json["limit"], 4.5);
  EXPECT_EQ(json["below_limit"], 1);
  ASSERT_EQ(json["pairs"].size(), 2U);
  EXPECT_EQ(json["pairs"][0]["wire"], "A\xEF\xBF\xBD\"");
  EXPECT_EQ(json["pairs"][0]["finding"], "below-limit");
  EXPECT_EQ(json["pairs"][1]["clearance"], 10.1803);
  EXPECT_EQ(json["pairs"][1]["y"], -25.0);
  EXPECT_TRUE(nlohmann::json::parse(formats::JsonOf(Measure(kHeader), kMil))["limit"].is_null());
}

// The search against every piece with every piece, by another formula.

glm::dvec3 Sum(const glm::dvec3& a, double times, const glm::dvec3& b) { return a + times * b; }
double Dot(const glm::dvec3& a, const glm::dvec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
double Apart(const glm::dvec3& a, const glm::dvec3& b) { return std::sqrt(Dot(a - b, a - b)); }

double ToSegment(const glm::dvec3& p, const analysis::Segment& s) {
  const glm::dvec3 along = Sum(s.B, -1, s.A);
  const double squared = Dot(along, along);
  const double part = squared == 0.0 ? 0.0 : std::clamp(Dot(Sum(p, -1, s.A), along) / squared, 0.0, 1.0);
  return Apart(p, Sum(s.A, part, along));
}

/// Between the insides by the two equations of the common perpendicular, else from one of the four ends.
double OfPieces(const analysis::Segment& a, const analysis::Segment& b) {
  const double ends = std::min({ToSegment(a.A, b), ToSegment(a.B, b), ToSegment(b.A, a), ToSegment(b.B, a)});
  const glm::dvec3 u = Sum(a.B, -1, a.A), v = Sum(b.B, -1, b.A), w = Sum(a.A, -1, b.A);
  const double uu = Dot(u, u), vv = Dot(v, v), uv = Dot(u, v), uw = Dot(u, w), vw = Dot(v, w);
  const double determinant = uu * vv - uv * uv;
  if (determinant <= 1e-12 * uu * vv) return ends;
  const double s = (uv * vw - vv * uw) / determinant;
  const double t = (uu * vw - uv * uw) / determinant;
  if (s < 0.0 || s > 1.0 || t < 0.0 || t > 1.0) return ends;
  return std::min(ends, Apart(Sum(a.A, s, u), Sum(b.A, t, v)));
}

double PlainDistance(const analysis::LoopOfNet& a, const analysis::LoopOfNet& b) {
  double least = HUGE_VAL;
  for (std::size_t i = 0; i + 1 < a.Points.size(); ++i)
    for (std::size_t j = 0; j + 1 < b.Points.size(); ++j)
      least = std::min(least, OfPieces({a.Points[i], a.Points[i + 1]}, {b.Points[j], b.Points[j + 1]}));
  return least;
}

/// A bound that no two pieces fall below: between the balls around the middles of the loops.
double AtLeast(const analysis::LoopOfNet& a, const analysis::LoopOfNet& b) {
  const auto radius = [](const analysis::LoopOfNet& loop) {
    double largest = 0.0;
    for (const glm::dvec3& point : loop.Points) largest = std::max(largest, Apart(point, loop.Points[3]));
    return largest;
  };
  return Apart(a.Points[3], b.Points[3]) - radius(a) - radius(b);
}

class LoopMaker {
 public:
  std::vector<analysis::LoopOfNet> Make(std::uint32_t count) {
    std::vector<analysis::LoopOfNet> loops;
    for (std::uint32_t i = 0; i < count; ++i) {
      analysis::LoopOfNet loop{.Points = {}, .Net = i % 400, .Pads = {i, i % 7 == 0 ? i / 2 : i}};
      switch (i % 6) {
        case 0:
          Crook(loop);
          break;
        case 1: {  // beside the one before it, or its first piece over that one's
          const glm::dvec3 by = i / 6 % 4 == 0
                                    ? Sum({}, 0.5, Sum(loops.back().Points[1], -1, loops.back().Points[0]))
                                    : Sum({}, 0.25 * double(i / 6 % 4), {1.0, 1.0, 0.5});
          for (glm::dvec3& point : loop.Points = loops.back().Points) point = Sum(point, 1, by);
          break;
        }
        case 2:  // straight through the middle of the second piece of the one before it
          Crossing(loops.back(), loop);
          break;
        case 3:  // a point
          loop.Points.fill(At());
          break;
        case 4:  // straight, and back along itself
          Crook(loop);
          for (std::size_t k = 2; k < loop.Points.size(); ++k) loop.Points[k] = loop.Points[k % 2];
          break;
        default:  // very nearly along the one before it
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
  void Crook(analysis::LoopOfNet& loop) {
    const glm::dvec3 start = At(), end = Sum(start, 0.2, At());
    for (std::size_t k = 0; k < loop.Points.size(); ++k) {
      loop.Points[k] = Sum(start, double(k) / 6.0, Sum(end, -1, start));
      loop.Points[k][2] += double(random_() % 64) / 16.0;
    }
  }
  void Crossing(const analysis::LoopOfNet& other, analysis::LoopOfNet& loop) {
    const glm::dvec3 centre = Sum({}, 0.5, Sum(other.Points[1], 1, other.Points[2]));
    const glm::dvec3 away{double(random_() % 9) - 4.0, 1.5, 0.25};
    for (std::size_t k = 0; k < loop.Points.size(); ++k)
      loop.Points[k] = Sum(centre, k < 3 ? -1.0 : 1.0, away);
  }

  std::mt19937 random_{20};
};

TEST(ClearanceSearch, FindsWhatEveryPieceWithEveryPieceFinds) {
  constexpr double kReach = 0.4;
  constexpr double kNear = 1e-9;
  const std::vector<analysis::LoopOfNet> loops = LoopMaker().Make(1000);
  std::map<std::pair<std::uint32_t, std::uint32_t>, double> inReach;
  std::vector<double> nearest(loops.size(), HUGE_VAL);
  for (std::uint32_t i = 0; i < loops.size(); ++i) {
    for (std::uint32_t j = i + 1; j < loops.size(); ++j) {
      if (!analysis::AreCompared(loops[i], loops[j])) continue;
      if (AtLeast(loops[i], loops[j]) > std::max({kReach, nearest[i], nearest[j]})) continue;
      const double distance = PlainDistance(loops[i], loops[j]);
      if (distance <= kReach) inReach[{i, j}] = distance;
      nearest[i] = std::min(nearest[i], distance);
      nearest[j] = std::min(nearest[j], distance);
    }
  }
  ASSERT_GT(inReach.size(), 200U);

  const std::vector<analysis::LoopPair> found = analysis::FindNearLoops(loops, kReach);
  std::vector<double> foundNearest(loops.size(), HUGE_VAL);
  std::size_t foundInReach = 0;
  double before = 0.0;
  for (const analysis::LoopPair& pair : found) {
    const analysis::LoopOfNet& first = loops[pair.First];
    const analysis::LoopOfNet& second = loops[pair.Second];
    ASSERT_LT(pair.First, pair.Second);
    ASSERT_TRUE(analysis::AreCompared(first, second));
    ASSERT_NEAR(pair.Distance, PlainDistance(first, second), kNear) << pair.First << " " << pair.Second;
    ASSERT_LE(before, pair.Distance);
    analysis::LoopOfNet where;
    where.Points.fill(pair.Where);
    for (const analysis::LoopOfNet* loop : {&first, &second})
      ASSERT_NEAR(PlainDistance(where, *loop), pair.Distance / 2.0, kNear);
    before = pair.Distance;
    foundInReach += inReach.count({pair.First, pair.Second});
    for (const std::uint32_t loop : {pair.First, pair.Second})
      foundNearest[loop] = std::min(foundNearest[loop], pair.Distance);
  }
  EXPECT_EQ(foundInReach, inReach.size());
  for (std::size_t i = 0; i < loops.size(); ++i) ASSERT_NEAR(foundNearest[i], nearest[i], kNear) << i;
  EXPECT_LT(analysis::FindNearLoops(loops, -1.0).size(), loops.size() + 1) << "a pair a loop at most";
  EXPECT_TRUE(analysis::FindNearLoops({}, 1.0).empty());
  EXPECT_TRUE(analysis::FindNearLoops({analysis::LoopOfNet{}}, 1.0).empty());
}

}  // namespace
}  // namespace yax
