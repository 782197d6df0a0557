#include "tests/render/scene_test.h"

namespace {

using render::Scene;

// 6 wide (x), 8 long (y): edges at x = +-3 and y = +-4.
constexpr char kLongDie[] = "TECHNOLOGY WIRE_BOND\nCOMPL 8\nCOMPW 6\nCOMPZ 1\n";

class WiresTest : public SceneTest {
 protected:
  WiresTest() {
    settings.BaseLoopHeight = 10.0F;
    settings.BaseExtension = 2.5F;
    settings.StackLoopHeight = 20.0F;
    settings.StackExtension = 5.0F;
    settings.StitchExtension = 1.0F;
  }

  const RecordingPen& DrawWires(const std::string& text) { return Draw(text, &Scene::DrawWires); }
  const RecordingPen& DrawWires() { return Draw(&Scene::DrawWires); }

  std::string Strip(std::size_t i) {
    std::string text;
    for (const model::SceneVector& point : pen.Strips.at(i)) text += PointText(point);
    return text;
  }
  /// Where the level part of a loop ends: the extension.
  std::string Reach(std::size_t i) { return PointText(pen.Strips.at(i)[5]); }
};

TEST_F(WiresTest, LoopsRiseBendRunLevelAndDrop) {
  const std::string wire = "CBP A 0 0 0 1 1 0 L NONE\nWB A 1 2 0 4 6 0.5 -1\n";
  DrawWires(kLongDie + wire);
  // From (1, 2) to (4, 6) the direction is (0.6, 0.8); heights 0.5 + 0.4, 0.6, 0.8 and 1 times 10;
  // out by 0.05, 0.1, 0.3 and 1 times 2.5. Package (x, y, z) is drawn at (x, z, -y).
  ASSERT_EQ(pen.Order, "S");
  EXPECT_EQ(Strip(0),
            "(1 0.5 -2)(1 4.5 -2)(1.075 6.5 -2.1)(1.15 8.5 -2.2)(1.45 10.5 -2.6)(2.5 10.5 -4)(4 -1 -6)");
  EXPECT_EQ(pen.StripColours[0], "Yellow");
  appearance.BlackBackground = false;
  EXPECT_EQ(DrawWires().StripColours[0], "Black");

  settings.BaseExtension = 0.0F;
  DrawWires();
  EXPECT_EQ(Strip(0), "(1 0.5 -2)(1 4.5 -2)(1 6.5 -2)(1 8.5 -2)(1 10.5 -2)(1 10.5 -2)(4 -1 -6)");
  settings.BaseExtension = 2.5F;
  settings.BaseLoopHeight = 0.0F;
  DrawWires();
  EXPECT_EQ(Strip(0),
            "(1 0.5 -2)(1 0.5 -2)(1.075 0.5 -2.1)(1.15 0.5 -2.2)(1.45 0.5 -2.6)(2.5 0.5 -4)(4 -1 -6)");
}

TEST_F(WiresTest, SettingsAreInFileUnits) {
  // 80 long: everything is divided by 10, including the loop of the previous test.
  DrawWires(
      "TECHNOLOGY WIRE_BOND\nCOMPL 80\nCOMPW 60\nCOMPZ 1\nCBP A 0 0 0 1 1 0 L NONE\nWB A 10 20 0 40 60 5 "
      "-10\n");
  EXPECT_EQ(
      Strip(0),
      "(1 0.5 -2)(1 0.9 -2)(1.0075 1.1 -2.01)(1.015 1.3 -2.02)(1.045 1.5 -2.06)(1.15 1.5 -2.2)(4 -1 -6)");
}

std::string Text(const model::WireBondSettings& s) {
  return model::Fields(s.Material, s.WireDiameter, s.Frequency, s.BaseLoopHeight, s.StackLoopHeight,
                       s.BaseExtension, s.StackExtension, s.StitchExtension);
}

TEST_F(WiresTest, UnsetSettingsBecomeTheDiesHeightsInFileUnitsAndOthersStay) {
  package.UnitScale = 100.0F;
  package.CompZ = 0.125F;
  package.SDCompZ = 0.0625F;
  settings = {};
  SetUnsetDefaults(settings, package);
  EXPECT_EQ(Text(settings), "'Au' 1 0 12.5 6.25 12.5 6.25 6.25");
  settings = {"Cu", 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, model::kEdgeOfBaseDie, 8.0F};
  SetUnsetDefaults(settings, package);
  EXPECT_EQ(Text(settings), "'Cu' 2 3 4 5 6 -1 8");
}

TEST_F(WiresTest, TablesFollowEachOtherWithTheirOwnSettings) {
  // All along x, from height 0: the reach shows each table's height and extension.
  DrawWires(
      std::string(kLongDie) +
      "STCH A 0 0 B 9 0 0 0\nCBP A 0 0 0 1 1 0 L NONE\nSD_CBP S 0 0 0 1 1 0 L NONE\nWB S 1 0 0 9 0 0 0\n"
      "WB A 1 0 0 9 0 0 0\n");
  ASSERT_EQ(pen.Order, "SSS");
  EXPECT_EQ(Reach(0), "(3.5 10 0)");
  EXPECT_EQ(Reach(1), "(6 20 0)");
  EXPECT_EQ(Reach(2), "(1 20 0)");  // the stacked die's loop height; and a stitch may start on the origin
}

TEST_F(WiresTest, BondsThatStartOnTheOriginHaveNoWire) {
  DrawWires(std::string(kLongDie) +
            "CBP A 0 0 0 1 1 0 L NONE\nCBP B 0 0 0 1 1 0 L NONE\nCBP C 0 0 0 1 1 0 L NONE\nCBP D 0 0 0 1 1 0 "
            "L NONE\n"
            "SD_CBP S 0 0 0 1 1 0 L NONE\nWB A 0 0 0 9 0 1 0\nWB B 0 1 0 9 1 0 0\nWB C 1 0 0 9 0 0 0\nWB S 0 "
            "0 0 9 0 1 0\n");
  ASSERT_EQ(pen.Order, "SS");
  EXPECT_EQ(PointText(pen.Strips[0][0]), "(0 0 -1)");
  EXPECT_EQ(PointText(pen.Strips[1][0]), "(1 0 0)");
}

TEST_F(WiresTest, OnlySelectedWiresAreDrawnWhileTheListIsShown) {
  Read(std::string(kLongDie) +
       "CBP A 0 0 0 1 1 0 L NONE\nCBP B 0 0 0 1 1 0 L NONE\nWB A 1 0 0 9 0 0 0\nWB B 2 0 0 9 0 0 0\n"
       "STCH A 3 0 B 9 0 0 0\n");
  EXPECT_EQ(DrawWires().Order, "SSS");
  selection.Shown = true;
  EXPECT_EQ(DrawWires().Order, "");
  selection.Names = {"a", "B"};  // case counts
  EXPECT_EQ(PointText(DrawWires().Strips.at(0)[0]), "(2 0 0)");
  EXPECT_EQ(pen.Order, "S");
  selection.Names = {"A:B"};
  EXPECT_EQ(PointText(DrawWires().Strips.at(0)[0]), "(3 0 0)");
  EXPECT_EQ(pen.Order, "S");
}

/// A stacked-die wire that runs from (x1, y1) to its substrate pad at (x2, y2).
std::string StackedWire(const char* name, const char* side, const std::string& from, const std::string& to) {
  return std::string("SD_CBP ") + name + " 0 0 0 1 1 0 " + side + " NONE\nSBP " + name + " " + to + "\nWB " +
         name + " " + from + " 0 " + to + " 0 0\n";
}

TEST_F(WiresTest, StackedWiresCanRunLevelToTheBaseDiesEdge) {
  settings.StackExtension = model::kEdgeOfBaseDie;
  // Every line is 5 long with sides 3 and 4; the reach lies on the edge.
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"T", "1 1", "4 5", "(3.25 20 -4)"},
      {"B", "1 -1", "4 -5", "(3.25 20 4)"},
      {"L", "-1 1", "-5 4", "(-3 20 -2.5)"},
      {"R", "1 1", "5 4", "(3 20 -2.5)"},
      {"t", "1 1", "4 5", "(3.25 20 -4)"},
      {"r", "1 1", "5 4", "(3 20 -2.5)"},
      // From beyond the edge, and the distance is positive all the same: 3.75 along (0.6, -0.8).
      {"T", "1 7", "4 3", "(3.25 20 -4)"}};
  for (const auto& [side, from, to, reach] : cases) {
    DrawWires(kLongDie + StackedWire("S", side, from, to));
    EXPECT_EQ(Reach(0), reach) << side << " " << from;
  }
}

TEST_F(WiresTest, WiresOnNoSideTakeTheEdgeDistanceOfTheWireBefore) {
  settings.StackExtension = model::kEdgeOfBaseDie;
  Read(kLongDie + StackedWire("FIRST", "?", "1 1", "4 5") + StackedWire("T", "T", "1 1", "4 5") +
       StackedWire("R", "R", "1 1", "5 4") + StackedWire("LAST", "-", "1 1", "4 5"));
  for (int build = 0; build < 2; ++build) {
    DrawWires();
    EXPECT_EQ(Reach(0), "(1 20 -1)") << "each build starts at 0";
    EXPECT_EQ(Reach(3), "(2.5 20 -3)") << "2.5 along (0.6, 0.8), as R before it";
  }
  // Wires that are not drawn pass no distance on: 3.75 along (0.6, 0.8), as T.
  selection = {true, {"T", "LAST"}};
  DrawWires();
  ASSERT_EQ(pen.Order, "SS");
  EXPECT_EQ(Reach(1), "(3.25 20 -4)");
}

TEST_F(WiresTest, FaultsNameTheWire) {
  Read(std::string(kLongDie) + "CBP VDD 0 0 0 1 1 0 L NONE\nWB VDD 1 2 0 1 2 0 5\n");
  EXPECT_EQ(FaultOf(), "Run-time error: Division by zero (wire VDD: its ends coincide)");
  Read(std::string(kLongDie) + "STCH A 0 0 B 0 0 0 0\n");
  EXPECT_EQ(FaultOf(), "Run-time error: Division by zero (wire A:B: its ends coincide)");
  settings.StackExtension = model::kEdgeOfBaseDie;
  Read(kLongDie + StackedWire("S", "T", "1 2", "5 2"));
  EXPECT_EQ(FaultOf(), "Run-time error: Division by zero (wire S: it runs along the base die's edge)");
  Read(kLongDie + StackedWire("S", "L", "1 2", "1 5"));
  EXPECT_EQ(FaultOf(), "Run-time error: Division by zero (wire S: it runs along the base die's edge)");
  // The length between the largest numbers of a file exceeds a single.
  Read(std::string(kLongDie) + "CBP FAR 0 0 0 1 1 0 L NONE\nWB FAR -3e38 1 0 3e38 1 0 0\n");
  EXPECT_EQ(FaultOf(), "Run-time error: Overflow (wire FAR)");
}

}  // namespace
