#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "analysis/die_edges.h"
#include "analysis/lengths.h"
#include "formats/length_table.h"
#include "tests/model/package_text.h"
#include "yax/options/opened_package.h"

namespace yax {
namespace {

/// Loops 10 high that reach out 10; those of the stacked die and the stitches are 20 high, straight up.
OpenedPackage Opened(const std::string& text, const std::string& netTypes = {},
                     const std::vector<TierLoop>& tiers = {}) {
  const TemporaryFolder folder;
  PutFile(folder / "board.yax.vu", netTypes);
  LoopOptions loops;
  loops.Values.BaseLoopHeight = loops.Values.BaseExtension = 10.0F;
  loops.Values.StackLoopHeight = 20.0F;
  loops.Values.StackExtension = loops.Values.StitchExtension = 0.0F;
  loops.Tiers = tiers;
  return OpenedPackage({.File = PutFile(folder / "board.yax", text), .Loops = loops});
}

std::vector<analysis::WireRow> RowsOf(const OpenedPackage& opened) {
  return analysis::MeasureLengths(opened.Package, opened.Loops());
}

// 80 long, so lengths are divided by 10 in the package. Results are in the file's units.
constexpr char kThreeWires[] =
    "TECHNOLOGY WIRE_BOND\nSD_COMPL 30\nSD_COMPW 30\nCOMPL 80\nCOMPW 60\nCOMPZ 5\n"
    "CBP A 25 10 0 2 2 0 R RECTANGLE\nSBP A 55 50 0 4 4 0 RECTANGLE 0 0\nWB A 25 10 0 55 50 5 0\n"
    "SD_CBP S 0 10 0 2 2 0 ? RECTANGLE\nSBP S 0 22 0 4 4 0 RECTANGLE 0 1\nWB S 0 10 0 -16 22 7 0\n"
    "STCH S 0 10 A 25 10 7 5\n";

TEST(WireRows, AreMeasuredInTheFilesUnits) {
  const OpenedPackage opened = Opened(kThreeWires, "A SIGNAL\nS POWER\n");
  const std::vector<analysis::WireRow> found = RowsOf(opened);
  const char* const rows[] = {
      // dx 30, dy 40: 50 in plan, and 53.13 degrees off the x axis. Up 4; then (0.5, 2), (0.5, 2), (2, 2),
      // level 7, and down from 40 away and 15 up: 4 + 2 * sqrt(4.25) + sqrt(8) + 7 + sqrt(40^2 + 15^2) = 4 +
      // 4.12311 + 2.82843 + 7 + 42.72002. Tiers counted from 0 are shown from 1.
      "'A' '' '1' 'SIGNAL' 50 60.67155 53.1301 5 15 0 9",
      // dx -16, dy 12, so 20 in plan. Straight up 20, then sqrt(20^2 + 27^2) = 33.60060. Its side letter
      // names no side; the stacked die's nearest edge is that at y = 15, whose normal is (0, 1).
      "'S' '' '2' 'POWER' 20 53.6006 53.1301 7 27 0 12",
      // A stitch starts at its first pad: 25 along x from there, at right angles to its edge's normal; up 20
      // and over to (25, -22), 33.30165 away.
      "'S' 'A' '2' 'POWER' 25 53.30165 90 7 27 5 13"};
  ASSERT_EQ(found.size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const analysis::WireRow& row = found[i];
    EXPECT_EQ(
        model::Fields(row.Name, row.OtherName, row.Tier, row.NetType, row.PlanLength, row.Length, row.Angle,
                      row.StartHeight, row.TopHeight, row.EndHeight, opened.Lines.Of(row.Place)),
        rows[i]);
  }
  const analysis::WireGroup power = analysis::GroupsOf(found).at(1);
  EXPECT_EQ(model::Fields(power.Tier, power.NetType, power.Wires, power.Shortest, power.Longest,
                          power.LargestAngle),
            "'2' 'POWER' 2 53.30165 53.6006 90");
  EXPECT_NEAR(power.Total, 106.90225, 1e-4);
  EXPECT_NEAR(power.Mean, 53.45113, 1e-4);
}

TEST(WireRows, AreForTheDrawnWires) {
  OpenedPackage opened = Opened(kThreeWires);
  opened.Selection = {true, {"S:A"}};
  EXPECT_EQ(RowsOf(opened).at(0).OtherName, "A");
  EXPECT_EQ(RowsOf(Opened(std::string(kThreeWires).substr(21))).size(), 0U) << "without TECHNOLOGY";
  EXPECT_EQ(RowsOf(Opened(std::string(kThreeWires) + "WB A 0 0 0 5 5 0 0\n")).size(), 2U);
}

TEST(WireRows, GiveATierItsOwnLoops) {
  // Tier 2 is that of S; A keeps the settings.
  const std::vector<analysis::WireRow> rows =
      RowsOf(Opened(kThreeWires, {}, {{"2", {3.0F, {}}}, {"2", {{}, 1.0F}}}));
  EXPECT_DOUBLE_EQ(rows[0].TopHeight, 15.0);
  EXPECT_DOUBLE_EQ(rows[1].TopHeight, 10.0) << "3 above the pad, which is at 7";
  EXPECT_DOUBLE_EQ(rows[2].TopHeight, 10.0) << "the stitch as well";
  // 1.2 up, 2 * sqrt(0.05^2 + 0.6^2), sqrt(0.2^2 + 0.6^2), 0.7 level, and sqrt(19^2 + 10^2) down.
  EXPECT_NEAR(rows[1].Length, 25.20753, 1e-4);
}

TEST(DieEdges, NearestEdgeIsThatOfTheTurnedDie) {
  const analysis::DieOutline die{{10.0, 0.0}, 8.0, 2.0, 0.0};
  const std::tuple<analysis::DieOutline, glm::dvec2, glm::dvec2> cases[] = {
      {die, {9.0, 0.9}, {0, 1}},
      {die, {13.9, 0.5}, {1, 0}},
      {die, {6.0, 0.0}, {-1, 0}},
      // Outside: 3 away from the right edge and level with it, though only 0.1 from the lower edge's line.
      {die, {17.0, -0.9}, {1, 0}},
      {die, {10.0, -30.0}, {0, -1}},
      // Turned by 90 degrees the right edge is the upper one; by 180 everything looks the other way.
      {{{10.0, 0.0}, 8.0, 2.0, 90.0}, {10.0, 3.9}, {0, 1}},
      {{{10.0, 0.0}, 8.0, 2.0, 90.0}, {9.1, 0.0}, {-1, 0}},
      {{{10.0, 0.0}, 8.0, 2.0, 45.0}, {13.0, 3.0}, {0.70710678, 0.70710678}},
  };
  for (const auto& [outline, point, normal] : cases) {
    const glm::dvec2 found = analysis::NormalOfNearestEdge(outline, point);
    EXPECT_NEAR(found.x, normal.x, 1e-8) << point.x << " " << point.y;
    EXPECT_NEAR(found.y, normal.y, 1e-8) << point.x << " " << point.y;
  }
}

TEST(WireTable, QuotesWhatNeedsIt) {
  EXPECT_EQ(formats::CsvField("mprj_io[32]"), "mprj_io[32]");
  EXPECT_EQ(formats::CsvField("a\rb"), "\"a\rb\"");
  EXPECT_EQ(formats::CsvField("a,\"b\""), "\"a,\"\"b\"\"\"");
  const analysis::WireRow row{.Place = {model::RecordTable::Stitches, 0},
                              .Name = "A,1",
                              .OtherName = "B",
                              .PlanLength = 2.5,
                              .Angle = 16.40564};
  EXPECT_EQ(formats::WiresCsv({row}, "mm"),
            "name,other_name,table,tier,net_type,plan_length_mm,length_mm,angle_deg,start_height_mm,"
            "top_height_mm,end_height_mm\n\"A,1\",B,stitch,,,2.5,0,16.40564,0,0,0\n");
  EXPECT_NE(formats::WiresJson(nullptr, {{.Tier = "1", .NetType = "G"}}, "um").find("\"longest_um\": 0.0"),
            std::string::npos);
}

}  // namespace
}  // namespace yax
