#include "tests/render/scene_test.h"

namespace {

using render::Scene;
using render::Snap;

std::string PlanText(const model::SceneVector& point) {
  return "(" + NumberText(double(point.X)) + " " + NumberText(double(point.Z)) + ")";
}

/// The two corners, in plan, of the box around the quads first .. first + count - 1.
std::string Bounds(const RecordingPen& pen, std::size_t first, std::size_t count) {
  model::SceneVector low{1e9F, 0.0F, 1e9F}, high{-1e9F, 0.0F, -1e9F};
  for (std::size_t i = first; i < first + count; ++i) {
    for (const model::SceneVector& corner : pen.Quads.at(i).Corners) {
      low = {std::min(low.X, corner.X), 0.0F, std::min(low.Z, corner.Z)};
      high = {std::max(high.X, corner.X), 0.0F, std::max(high.Z, corner.Z)};
    }
  }
  return PlanText(low) + PlanText(high);
}

/// Every plate is a top face that looks up and the same face reversed, a little lower.
void ExpectPlates(const RecordingPen& pen) {
  ASSERT_EQ(pen.Quads.size() % 2, 0U);
  for (std::size_t i = 0; i < pen.Quads.size(); i += 2) {
    const model::Face& top = pen.Quads[i];
    const model::Face& bottom = pen.Quads[i + 1];
    EXPECT_EQ(ColourText(top.Paint) + PointText(top.Normal), "Gray(0 1 0)") << "plate " << i / 2;
    EXPECT_EQ(ColourText(bottom.Paint) + PointText(bottom.Normal), "Gray(0 -1 0)") << "plate " << i / 2;
    for (std::size_t k = 0; k < 4; ++k) {
      EXPECT_EQ(top.Corners[k].X, bottom.Corners[3 - k].X);
      EXPECT_EQ(top.Corners[k].Y, -0.001F);
      EXPECT_EQ(bottom.Corners[3 - k].Y, -0.002F);
      EXPECT_EQ(top.Corners[k].Z, bottom.Corners[3 - k].Z);
    }
  }
}

std::string Top(const RecordingPen& pen, std::size_t plate) {
  std::string text;
  for (const model::SceneVector& corner : pen.Quads.at(2 * plate).Corners) text += PlanText(corner);
  return text;
}

TEST_F(SceneTest, StraightRingsMeetEdgeToEdge) {
  Draw(std::string(kSmallDie) + "RING R LINE -4 3 4 -3 0.5 9\n", &Scene::DrawRings);
  ASSERT_EQ(pen.Order, "QQQQQQQQ");
  ExpectPlates(pen);
  // Half the width, 0.25, to each side; the upright sides end where the others begin, at +-2.75.
  EXPECT_EQ(Top(pen, 0), "(-4.25 2.75)(4.25 2.75)(4.25 3.25)(-4.25 3.25)");
  EXPECT_EQ(Top(pen, 1), "(-4.25 -3.25)(4.25 -3.25)(4.25 -2.75)(-4.25 -2.75)");
  EXPECT_EQ(Top(pen, 2), "(-4.25 2.75)(-4.25 -2.75)(-3.75 -2.75)(-3.75 2.75)");
  EXPECT_EQ(Top(pen, 3), "(3.75 2.75)(3.75 -2.75)(4.25 -2.75)(4.25 2.75)");
  EXPECT_EQ(Draw(kSmallDie, &Scene::DrawRings).Order, "");
}

TEST_F(SceneTest, ArcRingsBowOutwardsByTheirBulgeAndKeepTheirCorners) {
  Draw(std::string(kSmallDie) + "RING R Arc -4 3 4 -3 0.5 1\n", &Scene::DrawRings);
  ASSERT_EQ(pen.Quads.size(), 792U);
  ExpectPlates(pen);
  // Horizontal sides: radius (8^2 / 4 + 1) / 2 = 8.5, a step is 8 / 99 = 0.080808. At the corner
  // sqrt(8.5^2 - 4^2) = 7.5 gives a bulge of 0; a step further sqrt(8.5^2 - 3.919192^2) = 7.542542 gives
  // 0.042542.
  EXPECT_EQ(Top(pen, 0), "(-4.25 2.75)(-3.6692 2.7925)(-3.6692 3.2925)(-4.25 3.25)");
  // The middle plate, half a step from the middle: the bulge is 1 - 0.040404^2 / 17 = 0.999904.
  EXPECT_EQ(Top(pen, 49), "(-0.2904 3.7499)(0.2904 3.7499)(0.2904 4.2499)(-0.2904 4.2499)");
  EXPECT_EQ(Top(pen, 98), "(3.6692 2.7925)(4.25 2.75)(4.25 3.25)(3.6692 3.2925)");
  // The other horizontal side is its mirror image.
  EXPECT_EQ(Top(pen, 99), "(-4.25 -3.25)(-3.6692 -3.2925)(-3.6692 -2.7925)(-4.25 -2.75)");
  // Upright sides: radius (6^2 / 4 + 1) / 2 = 5, a step is 0.060606. A step from the corner
  // sqrt(25 - 2.939394^2) = 4.044745 gives a bulge of 0.044745.
  EXPECT_EQ(Top(pen, 198), "(-3.75 -3.25)(-3.7947 -2.6894)(-4.2947 -2.6894)(-4.25 -3.25)");
  EXPECT_EQ(Top(pen, 297), "(4.25 -3.25)(4.2947 -2.6894)(3.7947 -2.6894)(3.75 -3.25)");
  EXPECT_EQ(Bounds(pen, 0, 198), "(-4.25 2.75)(4.25 4.2499)");
  EXPECT_EQ(Bounds(pen, 198, 198), "(-4.25 -4.2499)(4.25 -2.75)");
  EXPECT_EQ(Bounds(pen, 396, 198), "(-5.2499 -3.25)(-3.75 3.25)");
  EXPECT_EQ(Bounds(pen, 594, 198), "(3.75 -3.25)(5.2499 3.25)");
}

TEST_F(SceneTest, ArcRingsGivenUpsideDownAreSampledBeyondTheRing) {
  Draw(std::string(kSmallDie) + "RING R ARC -4 -3 4 3 0.5 1\n", &Scene::DrawRings);
  // Upright sides start at y2 = 3 and run 6 upwards all the same, over the circle of radius 5 and beyond it:
  // the bulge is 1 - 5 = -4 at y = 5, and 1 - (5 - sqrt(9^2 - 25)) = 3.4833 at y = 9.
  EXPECT_EQ(Bounds(pen, 396, 198), "(-7.7333 2.75)(0.25 9.25)");
}

TEST_F(SceneTest, SegmentsDrawTheirPartOfAStraightSide) {
  Draw(std::string(kSmallDie) +
           "SRING S LINE -4 3 4 -3 0.5 0\nSRSEG S B -1 1\nSRSEG S T -1 1\nSRSEG S L 2 -1\nSRSEG S R 2 -1\n"
           "SRSEG S b 0 1\nSRSEG S X 0 1\nSRING EMPTY LINE -4 3 4 -3 0.5 0\n",
       &Scene::DrawSRings);
  ASSERT_EQ(pen.Quads.size(), 8U);
  ExpectPlates(pen);
  EXPECT_EQ(Top(pen, 0), "(-1.25 2.75)(1.25 2.75)(1.25 3.25)(-1.25 3.25)");
  EXPECT_EQ(Top(pen, 1), "(-1.25 -3.25)(1.25 -3.25)(1.25 -2.75)(-1.25 -2.75)");
  EXPECT_EQ(Top(pen, 2), "(-4.25 1.75)(-4.25 -0.75)(-3.75 -0.75)(-3.75 1.75)");
  EXPECT_EQ(Top(pen, 3), "(3.75 1.75)(3.75 -0.75)(4.25 -0.75)(4.25 1.75)");
}

TEST_F(SceneTest, SegmentsOfArcRingsLieOnTheRingsArcWithTheirTopsUp) {
  Draw(std::string(kSmallDie) +
           "SRING S arc -4 3 4 -3 0.5 1\nSRSEG S L 2 -1\nSRSEG S R 2 -1\nSRSEG S B -2 1\nSRSEG S T -2 "
           "1\nSRSEG S l 2 1\n",
       &Scene::DrawSRings);
  ASSERT_EQ(pen.Quads.size(), 4U * 198U);
  ExpectPlates(pen);
  // At y = 2 the bulge is sqrt(25 - 4) - 4 = 0.582576, a step of 3 / 99 lower sqrt(25 - 1.969697^2) - 4 =
  // 0.595682.
  EXPECT_EQ(Top(pen, 0), "(-4.8326 2.25)(-4.8457 1.7197)(-4.3457 1.7197)(-4.3326 2.25)");
  EXPECT_EQ(Top(pen, 99), "(4.3326 2.25)(4.3457 1.7197)(4.8457 1.7197)(4.8326 2.25)");
  // Longer by 0.25 at both ends. On the upright sides the bulge is least at y = 2, and within 0.0001 of 1 in
  // the middle; on the horizontal ones it is least at x = -2, sqrt(8.5^2 - 4) - 7.5 = 0.761355.
  EXPECT_EQ(Bounds(pen, 0, 198), "(-5.25 -1.25)(-4.3326 2.25)");
  EXPECT_EQ(Bounds(pen, 198, 198), "(4.3326 -1.25)(5.25 2.25)");
  EXPECT_EQ(Bounds(pen, 396, 198), "(-2.25 3.5114)(1.25 4.25)");
  EXPECT_EQ(Bounds(pen, 594, 198), "(-2.25 -4.25)(1.25 -3.5114)");
}

TEST(Snap, MeasuresFromTheSidesMiddleAndGoesOnBeyondTheCircle) {
  EXPECT_EQ(Snap(model::Side::Bottom, 1.0F, 50.0F, 5.0F, 1.0F, 1.0F), 1.0F);
  EXPECT_EQ(Snap(model::Side::Bottom, 1.0F, 50.0F, 5.0F, 1.0F, 4.0F),
            0.0F);  // 3 from the middle: sqrt(25 - 9) = 4
  EXPECT_EQ(Snap(model::Side::Left, 50.0F, 1.0F, 5.0F, 1.0F, 4.0F), 0.0F);
  EXPECT_EQ(Snap(model::Side::Right, 50.0F, 1.0F, 5.0F, 1.0F, -2.0F), 0.0F);
  EXPECT_EQ(Snap(model::Side::Top, 0.0F, 0.0F, 5.0F, 1.0F, 13.0F),
            8.0F);  // sqrt(13^2 - 25) = 12, 1 - (5 - 12) = 8
}

TEST_F(SceneTest, AttachBandsAreLongerByHalfTheirWidthInEitherOrderOfTheirEnds) {
  Draw(std::string(kSmallDie) +
           "DAP X 3 1 -1 1 0.5\nDAP Y 2 -1 2 3 0.5\nDAP SLANTED 0 0 3 4 2\nDAP POINT 1 1 1 1 0.5\n",
       &Scene::DrawAttach);
  ASSERT_EQ(pen.Quads.size(), 8U);
  ExpectPlates(pen);
  const std::string first[] = {Top(pen, 0), Top(pen, 1), Top(pen, 2), Top(pen, 3)};
  EXPECT_EQ(first[0], "(-1.25 0.75)(3.25 0.75)(3.25 1.25)(-1.25 1.25)");
  EXPECT_EQ(first[1], "(1.75 3.25)(1.75 -1.25)(2.25 -1.25)(2.25 3.25)");
  // Along (0.6 0.8), across (-0.8 0.6), 1 each way from both ends.
  EXPECT_EQ(first[2], "(0.2 -1.4)(4.4 4.2)(2.8 5.4)(-1.4 -0.2)");
  EXPECT_EQ(first[3], "(0.75 0.75)(1.25 0.75)(1.25 1.25)(0.75 1.25)");
}

TEST_F(SceneTest, RingsWithoutBulgeFaultOnlyWhereARadiusIsNeeded) {
  Read(std::string(kSmallDie) + "RING R LINE -4 3 4 -3 0.5 0\nRING R ARC -4 3 4 -3 0.5 0\n");
  EXPECT_EQ(FaultOf(), "Run-time error: Division by zero (ring 2: its bulge is 0)");
  Read(std::string(kSmallDie) + "SRING S ARC -4 3 4 -3 0.5 0\nSRSEG S x 1 2\n");
  EXPECT_EQ(FaultOf(), "no fault");
  Read(std::string(kSmallDie) + "SRING S ARC -4 3 4 -3 0.5 0\nSRSEG S B 1 2\n");
  EXPECT_EQ(FaultOf(), "Run-time error: Division by zero (segmented ring S: its bulge is 0)");
}

}  // namespace
