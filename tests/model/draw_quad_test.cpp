#include "model/draw_quad.h"

#include <gtest/gtest.h>

#include "tests/render/recording_pen.h"

namespace model {
namespace {

TEST(ColourOf, TakesTheFirstExactName) {
  const std::pair<const char*, Colour> cases[] = {
      {"Black", {0.0F, 0.0F, 0.0F}},  // never the very dark blue of the second "Black"
      {"DarkBlue", {0.0F, 0.0F, 0.5F}},
      {"LightCyan", {0.5F, 1.0F, 1.0F}},
      {"LightGray", {0.75F, 0.75F, 0.75F}},
      {"white", {0.0F, 0.0F, 0.0F}},
      {"", {0.0F, 0.0F, 0.0F}}};
  for (const auto& [name, colour] : cases) {
    const Colour found = ColourOf(name);
    EXPECT_TRUE(found.Red == colour.Red && found.Green == colour.Green && found.Blue == colour.Blue) << name;
  }
}

std::string Drawn(const PackagePoint& a, const PackagePoint& b, const PackagePoint& c,
                  const PackagePoint& d) {
  RecordingPen pen;
  DrawQuad(pen, a, b, c, d, "Gray");
  return FaceText(pen.Quads.at(0));
}

TEST(DrawQuad, ExchangesYAndHeightAndFacesWhereCornersRunClockwise) {
  // In the scene u = (2 0 0) and v = (0 0 3), so u x v = (0 -6 0); the normal has the opposite direction.
  EXPECT_EQ(Drawn({0, 0, 7}, {2, 0, 7}, {2, 3, 7}, {0, 3, 7}),
            "Gray (0 1 0) (0 7 0) (2 7 0) (2 7 3) (0 7 3)");
  EXPECT_EQ(Drawn({0, 3, 7}, {2, 3, 7}, {2, 0, 7}, {0, 0, 7}),
            "Gray (0 -1 0) (0 7 3) (2 7 3) (2 7 0) (0 7 0)");
  // u = (0 0 4), v = (3 4 0): u x v = (-16 12 0), of length 20.
  EXPECT_EQ(Drawn({0, 0, 0}, {0, 4, 0}, {3, 4, 4}, {3, 0, 4}),
            "Gray (0.8 -0.6 0) (0 0 0) (0 0 4) (3 4 4) (3 4 0)");
}

TEST(DrawQuad, DrawsAFaceWithoutAreaWithAZeroNormal) {
  EXPECT_EQ(Drawn({0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 1, 0}),
            "Gray (0 0 0) (0 0 0) (1 0 0) (2 0 0) (2 0 1)");
}

}  // namespace
}  // namespace model
