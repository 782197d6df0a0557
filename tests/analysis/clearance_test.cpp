#include "analysis/clearance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "formats/clearance_table.h"
#include "tests/pattern.h"
#include "tests/refusal.h"
#include "tests/temporary_folder.h"
#include "yax/options/opened_package.h"

namespace yax {
namespace {

/// How a package is measured: wires of 1 mil in a file in mils, loops that are straight lines.
struct How {
  std::optional<double> limit = {};
  bool all = false;
  double diameter = 1.0;
  std::string netPattern = {};
};

analysis::Clearances Measure(const std::string& text, const How& how = {}) {
  const TemporaryFolder folder;
  LoopOptions loops;
  loops.Values.BaseLoopHeight = loops.Values.StackLoopHeight = 0.0F;
  loops.Values.BaseExtension = loops.Values.StitchExtension = 0.0F;
  const OpenedPackage opened({.File = PutFile(folder / "board.yax", text), .Loops = loops});
  analysis::ClearanceRules rules{.WireDiameter = how.diameter, .Limit = how.limit, .All = how.all};
  if (!how.netPattern.empty()) rules.Nets.Pattern = Pattern(how.netPattern);
  return analysis::MeasureClearances(analysis::WireLoopsOf(opened.Wires()), rules);
}

/// "A B clearance" of each row, in thousandths, followed by its finding.
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

// 40 long, so lengths are divided by 10 in the package. Results are in the file's units.
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

TEST(Clearance, ReportsWhatTouchesAndWhatIsBelowTheLimit) {
  const std::pair<How, Rows> cases[] = {
      {{.diameter = 5.0}, {"A B 0 touching", "B C 6180"}},
      {{.diameter = 6.0}, {"A B -1000 touching", "B C 5180"}},
      {{.limit = 4.0}, {"A B 4000", "B C 10180"}},
      {{.limit = 4.001}, {"A B 4000 below", "B C 10180"}},
      // A-C is not the nearest pair of either wire.
      {{.limit = 29.001}, {"A B 4000 below", "B C 10180 below"}},
      {{.limit = 29.001, .all = true}, {"A B 4000 below", "B C 10180 below", "A C 29000 below"}},
      {{.limit = 28.999, .all = true}, {"A B 4000 below", "B C 10180 below"}},
      {{.all = true, .diameter = 31.0}, {"A B -26000 touching", "B C -19820 touching", "A C -1000 touching"}},
  };
  for (const auto& [how, rows] : cases)
    EXPECT_EQ(Texts(Measure(kThreeWires, how)), rows) << how.limit.value_or(0.0) << " " << how.diameter;
}

TEST(Clearance, LeavesOutConnectedWires) {
  const std::string crossing = Wire("V_1", "1", "10 0", "50 0", "10 10") +
                               Wire("V_2", "1", "30 -20", "30 20", "10 10") +
                               Wire("X", "1", "10 -30", "50 -30", "10 10");
  EXPECT_EQ(Texts(Measure(kHeader + crossing)), (Rows{"V_1 V_2 -1000 touching", "V_2 X 9000"}));
  // V_1 is 30 away from X.
  const analysis::Clearances ofNets = Measure(kHeader + crossing, {.netPattern = "^(V)_"});
  EXPECT_EQ(Texts(ofNets), (Rows{"V_2 X 9000", "V_1 X 29000"}));
  EXPECT_EQ(ofNets.Rows.at(0).Net + " " + ofNets.Rows.at(0).OtherNet, "V X");

  // Two wires to one point of the substrate; and one that only passes 2 below it.
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
  nets.Pattern = Pattern("^(V..)_|^X(Y)?");
  const std::string longName = "VDD_" + std::string(100'000, 'x');
  for (const auto& [name, net] : std::vector<std::pair<std::string, std::string>>{
           {"VDD_L_0", "VDD"}, {"aVDD_0", "aVDD_0"}, {"XY", "XY"}, {"", ""}, {longName, longName}})
    EXPECT_EQ(analysis::NetOf(nets, name), net) << name.substr(0, 20);
}

TEST(Units, AreRequiredWhereMilsMakeNoSense) {
  model::Package package;
  package.PackagePath = "small.yax";
  package.UnitScale = 10.0F;
  package.CompL = 1.9F;
  package.CompW = 1.0F;
  const auto unit = [&](const char* name) {
    return OpenedPackage({.Unit = analysis::UnitNamed(name)}, package, {}).Unit().Name;
  };
  EXPECT_EQ(Refusal([&] { unit(""); }), "small.yax: the die's size suggests mm; pass --unit mm, um or mil")
      << "no die is 19 mil long";
  EXPECT_STREQ(unit("mil"), "mil");
  package.CompW = 2.0F;
  EXPECT_STREQ(unit(""), "mil") << "20 by the longer side";
}

TEST(Clearance, IsWrittenInColumnsAndInJson) {
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
  const std::string json = formats::JsonOf(report, kMil);
  for (const char* part :
       {R"("unit": "mil")", R"("limit": 4.5,)", R"("below_limit": 1,)", "\"A\xEF\xBF\xBD\\\"\",",
        R"("finding": "below-limit")", R"("clearance": 10.1803,)", R"("y": -25.0,)"})
    EXPECT_NE(json.find(part), std::string::npos) << part << " in " << json;
  EXPECT_NE(formats::JsonOf(Measure(kHeader), kMil).find("\"limit\": null"), std::string::npos);
}

}  // namespace
}  // namespace yax
