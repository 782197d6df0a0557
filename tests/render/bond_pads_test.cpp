#include "tests/render/scene_test.h"

namespace {

using render::Scene;

std::string Die(const char* name, const char* side) {
  return std::string("CBP ") + name + " 0 0 0 1 1 0 " + side + " NONE\n";
}

/// 4 by 1 at (5, 2): 4 along y and 1 along x without rotation.
std::string Pad(const char* name, const char* angle, const char* shape) {
  return std::string("SBP ") + name + " 5 2 0 4 1 " + angle + " " + shape + " 0 1\n";
}

TEST_F(SceneTest, SubstratePadsAreThinPlatesWithYNegated) {
  Draw(kSmallDie + Die("A", "B") + Pad("A", "0", "RECTANGLE"), &Scene::DrawBondPads);
  ASSERT_EQ(pen.Order, "QQ");
  EXPECT_EQ(FaceText(pen.Quads[0]),
            "Gray (0 -1 0) (5.5 -0.001 0) (5.5 -0.001 -4) (4.5 -0.001 -4) (4.5 -0.001 0)");
  EXPECT_EQ(FaceText(pen.Quads[1]), "White (0 1 0) (4.5 0 0) (4.5 0 -4) (5.5 0 -4) (5.5 0 0)");
  appearance.BlackBackground = false;
  Draw(&Scene::DrawBondPads);
  EXPECT_EQ(ColourText(pen.Quads[0].Paint), "Gray");
  EXPECT_EQ(ColourText(pen.Quads[1].Paint), "Gray");
}

TEST_F(SceneTest, SubstratePadsTurnWithTheirSideAndAngle) {
  const char* const upright = "White (0 1 0) (4.5 0 0) (4.5 0 -4) (5.5 0 -4) (5.5 0 0)";
  // A quarter turn takes the corner (-0.5, -2) to (-2, +0.5), which is drawn at z = -2.5.
  const char* const quarter = "White (0 1 0) (3 0 -2.5) (7 0 -2.5) (7 0 -1.5) (3 0 -1.5)";
  // 30 degrees take (-0.5, -2) to (-0.5 cos 30 - 2 sin 30, 0.5 sin 30 - 2 cos 30) = (-1.4330, -1.4821).
  const char* const thirty =
      "White (0 1 0) (3.567 0 -0.5179) (5.567 0 -3.9821) (6.433 0 -3.4821) (4.433 0 -0.0179)";
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"B", "0", upright},  {"t", "0", upright},   {"L", "0", quarter}, {"r", "0", quarter},
      {"T", "90", quarter}, {"R", "-90", upright}, {"B", "30", thirty}, {"L", "-60", thirty}};
  for (const auto& [side, angle, expected] : cases) {
    Draw(kSmallDie + Die("A", side) + Pad("A", angle, "rectangle"), &Scene::DrawBondPads);
    ASSERT_EQ(pen.Order, "QQ");
    EXPECT_EQ(FaceText(pen.Quads[1]), expected) << side << " " << angle;
  }
}

TEST_F(SceneTest, AnyOtherShapeHasRoundEnds) {
  for (const char* shape : {"ROUND", "OBLONG", "x"}) {
    Draw(kSmallDie + Die("A", "T") + Pad("A", "0", shape), &Scene::DrawBondPads);
    ASSERT_EQ(pen.Order, "QDDQDD");
    // Half as long: 1 to each side of the centre, with a disc of the width at either end.
    EXPECT_EQ(FaceText(pen.Quads[1]), "White (0 1 0) (4.5 0 -1) (4.5 0 -3) (5.5 0 -3) (5.5 0 -1)");
    EXPECT_EQ(DiscText(pen.Discs[0]), "(5 -0.001 -1) 1");
    EXPECT_EQ(DiscText(pen.Discs[1]), "(5 -0.001 -3) 1");
    EXPECT_EQ(DiscText(pen.Discs[2]), "(5 0 -1) 1");
    EXPECT_EQ(DiscText(pen.Discs[3]), "(5 0 -3) 1");
  }
}

TEST_F(SceneTest, SubstratePadsOnTheOriginAreNotDrawn) {
  Draw(kSmallDie + Die("A", "B") + Die("B", "B") + "SBP B 0 0 0 4 1 0 RECTANGLE 0 1\n", &Scene::DrawBondPads);
  EXPECT_EQ(pen.Order, "");
  Draw(kSmallDie + Die("A", "B") + Die("B", "B") +
           "SBP A 0 2 0 4 1 0 RECTANGLE 0 1\nSBP B 5 0 0 4 1 0 RECTANGLE 0 1\n",
       &Scene::DrawBondPads);
  EXPECT_EQ(pen.Order, "QQQQ");
}

TEST_F(SceneTest, PadsOnNoEdgeTakeTheCornersOfThePadBefore) {
  const std::string pads = kSmallDie + Die("LOST", "X") + Die("A", "B") + Die("FLAT", "B") +
                           "SD_CBP S 0 0 0 1 1 0 ? NONE\n" + Pad("LOST", "0", "RECTANGLE") +
                           Pad("A", "0", "RECTANGLE") + "SBP FLAT 9 9 0 0 1 0 RECTANGLE 0 1\n" +
                           Pad("S", "0", "RECTANGLE");
  const char* const nothingYet = "White (0 0 0) (0 0 0) (0 0 0) (0 0 0) (0 0 0)";
  const char* const ofA = "White (0 1 0) (4.5 0 0) (4.5 0 -4) (5.5 0 -4) (5.5 0 0)";
  Draw(pads, &Scene::DrawBondPads);
  ASSERT_EQ(pen.Quads.size(), 6U);
  EXPECT_EQ(FaceText(pen.Quads[1]), nothingYet);
  EXPECT_EQ(FaceText(pen.Quads[3]), ofA);
  EXPECT_EQ(FaceText(pen.Quads[5]), ofA);
  // They last from table to table, from build to build, and into the next package.
  EXPECT_EQ(FaceText(Draw(&Scene::DrawSDBondPads).Quads[1]), ofA);
  EXPECT_EQ(FaceText(Draw(&Scene::DrawBondPads).Quads[1]), ofA);
  EXPECT_EQ(FaceText(Draw(pads, &Scene::DrawBondPads).Quads[1]), ofA);
}

}  // namespace
