#include "tests/render/scene_test.h"

namespace {

using render::Scene;

// 6 wide (x), 4 long (y), 1 high.
constexpr char kBase[] = "COMPL 4\nCOMPW 6\n";
constexpr char kWireBond[] = "TECHNOLOGY WIRE_BOND\n";
constexpr char kFlipChip[] = "TECHNOLOGY FLIP_CHIP\n";
constexpr char kOneHigh[] = "COMPZ 1\n";
// On it 1 wide, 2 long, 0.5 high, with its centre at (1, 0.5).
constexpr char kStacked[] = "SD_COMPL 2\nSD_COMPW 1\nSD_COMPZ 0.5\nSD_XOFFSET 1\nSD_YOFFSET 0.5\n";

std::string Text(std::initializer_list<const char*> parts) {
  std::string text;
  for (const char* part : parts) text += part;
  return text;
}

TEST_F(SceneTest, BaseDieIsABoxWithNormalsOutwards) {
  Draw(Text({kWireBond, kBase, kOneHigh}), &Scene::DrawDie);
  const char* expected[] = {"White (0 1 0) (3 1 2) (-3 1 2) (-3 1 -2) (3 1 -2)",
                            "DarkBlue (0 -1 0) (3 0 -2) (-3 0 -2) (-3 0 2) (3 0 2)",
                            "DarkCyan (0 0 1) (3 0 2) (-3 0 2) (-3 1 2) (3 1 2)",
                            "DarkCyan (0 0 -1) (-3 0 -2) (3 0 -2) (3 1 -2) (-3 1 -2)",
                            "DarkCyan (-1 0 0) (-3 0 2) (-3 0 -2) (-3 1 -2) (-3 1 2)",
                            "DarkCyan (1 0 0) (3 0 -2) (3 0 2) (3 1 2) (3 1 -2)"};
  ASSERT_EQ(pen.Order, "QQQQQQ");
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(FaceText(pen.Quads[i]), expected[i]);

  appearance.BlackBackground = false;
  EXPECT_EQ(ColourText(Draw(&Scene::DrawDie).Quads[0].Paint), "Cyan");
  // Only a wire bond package has a bottom face.
  for (const char* technology : {kFlipChip, ""}) {
    Draw(Text({technology, kBase, kOneHigh}), &Scene::DrawDie);
    ASSERT_EQ(pen.Order, "QQQQQ");
    EXPECT_EQ(FaceText(pen.Quads[1]), expected[2]);
  }
}

TEST_F(SceneTest, StackedDieStandsOnTheBaseDieWithYNotNegated) {
  Draw(Text({kBase, kStacked, kOneHigh}), &Scene::DrawSDDie);
  const char* expected[] = {"Gray (0 1 0) (1.5 1.5 1.5) (0.5 1.5 1.5) (0.5 1.5 -0.5) (1.5 1.5 -0.5)",
                            "DarkCyan (0 0 -1) (1.5 1.5 -0.5) (0.5 1.5 -0.5) (0.5 1 -0.5) (1.5 1 -0.5)",
                            "DarkCyan (0 0 1) (1.5 1 1.5) (0.5 1 1.5) (0.5 1.5 1.5) (1.5 1.5 1.5)",
                            "DarkCyan (-1 0 0) (0.5 1 1.5) (0.5 1 -0.5) (0.5 1.5 -0.5) (0.5 1.5 1.5)",
                            "DarkCyan (1 0 0) (1.5 1.5 1.5) (1.5 1.5 -0.5) (1.5 1 -0.5) (1.5 1 1.5)"};
  ASSERT_EQ(pen.Order, "QQQQQ");
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(FaceText(pen.Quads[i]), expected[i]);
  // A quarter turn about (1, 0.5) takes the corner at (+0.5, +1) from it to (-1, +0.5).
  Draw(Text({kBase, kStacked, "SD_ROTATION 90\n", kOneHigh}), &Scene::DrawSDDie);
  EXPECT_EQ(FaceText(pen.Quads[0]), "Gray (0 1 0) (0 1.5 1) (0 1.5 0) (2 1.5 0) (2 1.5 1)");
}

TEST_F(SceneTest, AnyWidthButZeroIsAStackedDie) {
  EXPECT_EQ(Draw(Text({kBase, kOneHigh})).Quads.size(), 5U);
  // Corner 2, where the top begins, is at half the width to the right: here -0.5.
  Draw(Text({kBase, "SD_COMPL 2\nSD_COMPW -1\n", kOneHigh}));
  ASSERT_EQ(pen.Quads.size(), 10U);
  EXPECT_EQ(PointText(pen.Quads[5].Corners[0]), "(-0.5 1 1)");
}

TEST_F(SceneTest, DiePadsLieJustAboveTheDieWithYNegated) {
  const auto pad = [&](const std::string& rest) {
    Draw(Text({kBase, kOneHigh}) + "CBP A 1 0.5 0 0.4 0.2 0 " + rest, &Scene::DrawDiePads);
    return pen.Quads.empty() ? "nothing" : FaceText(pen.Quads[0]);
  };
  // The normal of a pad on the base die points down.
  const char* const wide =
      "Blue (0 -1 0) (1.2 1.001 -0.6) (0.8 1.001 -0.6) (0.8 1.001 -0.4) (1.2 1.001 -0.4)";
  const char* const tall =
      "Blue (0 -1 0) (1.1 1.001 -0.7) (0.9 1.001 -0.7) (0.9 1.001 -0.3) (1.1 1.001 -0.3)";
  for (const char* side : {"L", "R", "t", "b", "X"})
    EXPECT_EQ(pad(std::string(side) + " RECTANGLE"), wide) << side;
  for (const char* side : {"T", "B"}) EXPECT_EQ(pad(std::string(side) + " Rectangle"), tall) << side;
  // "ROUND" counts only as it stands.
  for (const char* shape : {"round", "Round", "OBLONG", ""})
    EXPECT_EQ(pad(std::string("L ") + shape), "nothing") << shape;
}

TEST_F(SceneTest, RoundDiePadsAreDiscsAndBumpsHaveASecondOneBelow) {
  const std::string pad = "CBP A 1 0.5 0 0.4 0.2 0 L ROUND\n";
  Draw(Text({kWireBond, kBase, kOneHigh}) + pad, &Scene::DrawDiePads);
  ASSERT_EQ(pen.Order, "QD");
  // Quarters of the sizes to each side of the centre.
  EXPECT_EQ(FaceText(pen.Quads[0]),
            "Blue (0 -1 0) (1.1 1.001 -0.55) (0.9 1.001 -0.55) (0.9 1.001 -0.45) (1.1 1.001 -0.45)");
  EXPECT_EQ(DiscText(pen.Discs[0]), "(1 1.001 -0.5) 0.4");
  Draw(Text({kFlipChip, kBase, kOneHigh}) + pad, &Scene::DrawDiePads);
  ASSERT_EQ(pen.Order, "QDD");
  EXPECT_EQ(DiscText(pen.Discs[0]), "(1 1.001 -0.5) 0.4");
  EXPECT_EQ(DiscText(pen.Discs[1]), "(1 0.999 -0.5) 0.4");
}

TEST_F(SceneTest, StackedDiePadsTurnEachAboutItsOwnCentre) {
  // Sizes change places on every side: 0.4 along x, 0.2 along y. A quarter turn about (1, -0.5) takes
  // corner 2 from (+0.2, +0.1) to (-0.1, +0.2).
  const std::string turned = Text({kBase, kStacked, "SD_ROTATION 90\n", kOneHigh});
  for (const char* side : {"L", "T"}) {
    Read(turned + "SD_CBP S 1 0.5 0 0.2 0.4 0 " + side + " rectangle\n");
    scene.RotateSDCorners();
    Draw(&Scene::DrawSDDiePads);
    ASSERT_EQ(pen.Order, "Q");
    EXPECT_EQ(FaceText(pen.Quads[0]),
              "Blue (0 1 0) (0.9 1.501 -0.3) (0.9 1.501 -0.7) (1.1 1.501 -0.7) (1.1 1.501 -0.3)");
  }
  // Nothing draws the fifth point, (0, 2 * DieY) from the centre, but it faults like the others.
  Read(turned + "SD_CBP S 1 2e38 0 0.2 0.4 0 L RECTANGLE\n");
  EXPECT_EQ(FaultOf(&Scene::RotateSDCorners), "Run-time error: Overflow (stacked die pad S)");
}

TEST_F(SceneTest, PartsOfARoundStackedPadLieAtThreeHeights) {
  // Base die 1 high: the quad at 1 + 1 + 0.001, the disc at 1 + 0.001, the bump at 1 - 0.001 + 1; not turned.
  Draw(Text({kFlipChip, kBase, kStacked, "SD_ROTATION 90\n", kOneHigh}) +
           "SD_CBP S 1 0.5 0 0.2 0.4 0 L ROUND\n",
       &Scene::DrawSDDiePads);
  ASSERT_EQ(pen.Order, "QDD");
  EXPECT_EQ(FaceText(pen.Quads[0]),
            "Blue (0 -1 0) (1.1 2.001 -0.55) (0.9 2.001 -0.55) (0.9 2.001 -0.45) (1.1 2.001 -0.45)");
  EXPECT_EQ(DiscText(pen.Discs[0]), "(1 1.001 -0.5) 0.4");
  EXPECT_EQ(DiscText(pen.Discs[1]), "(1 1.999 -0.5) 0.4");
}

TEST_F(SceneTest, PadsOfAStackedDieWithoutWidthHaveTheirCornersAtZero) {
  Draw(Text({kBase, kOneHigh}) + "SD_CBP S 1 0.5 0 0.2 0.4 0 L RECTANGLE\n");
  ASSERT_EQ(pen.Quads.size(), 6U);
  EXPECT_EQ(FaceText(pen.Quads[5]), "Blue (0 0 0) (0 1.001 0) (0 1.001 0) (0 1.001 0) (0 1.001 0)");
}

TEST_F(SceneTest, CircleHasStepsOfTenDegrees) {
  scene.DrawCircle(1.0F, 2.0F, 3.0F, 4.0F);
  const model::DiscRim& rim = pen.Discs[0];
  EXPECT_EQ(PointText(rim[0]), "(1 3 4)");
  EXPECT_EQ(PointText(rim[3]), "(2 3 3.7321)");  // 30 degrees: half the radius aside, 2 cos 30 = 1.7321 down
  EXPECT_EQ(PointText(rim[9]), "(3 3 2)");
  EXPECT_EQ(PointText(rim[18]), "(1 3 0)");
  EXPECT_EQ(PointText(rim[36]), "(1 3 4)");
  // A negative diameter starts at the opposite point.
  scene.DrawCircle(1.0F, 2.0F, 3.0F, -4.0F);
  EXPECT_EQ(PointText(pen.Discs[1][0]), "(1 3 0)");
  EXPECT_EQ(PointText(pen.Discs[1][9]), "(-1 3 2)");
}

}  // namespace
