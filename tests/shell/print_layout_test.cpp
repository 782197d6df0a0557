#include "shell/print_layout.h"

#include <gtest/gtest.h>

namespace shell {
namespace {

void ExpectPlace(const PrintPlace& place, double x, double y, double width, double height) {
  EXPECT_DOUBLE_EQ(place.X, x);
  EXPECT_DOUBLE_EQ(place.Y, y);
  EXPECT_DOUBLE_EQ(place.Width, width);
  EXPECT_DOUBLE_EQ(place.Height, height);
}

TEST(PrintLayout, NoScaleKeepsTheSizeInInchesAtTheTopLeft) {
  // 480 x 192 pixels are 5 x 2 inches: 3000 x 1200 dots at 600 to the inch.
  const PrintPlace place = PlaceNoScale(480, 192, {4800, 6600, 600, 600});
  ExpectPlace(place, 0, 0, 3000, 1200);
  EXPECT_DOUBLE_EQ(place.SourceWidth, 480);
  EXPECT_DOUBLE_EQ(place.SourceHeight, 192);
}

TEST(PrintLayout, NoScaleCutsOffWhatDoesNotFit) {
  // The area is 8 inches = 768 pixels wide; 1000 pixels are cut there. 96 pixels in height fit.
  const PrintPlace place = PlaceNoScale(1000, 96, {4800, 6600, 600, 600});
  ExpectPlace(place, 0, 0, 4800, 600);
  EXPECT_DOUBLE_EQ(place.SourceWidth, 768);
  EXPECT_DOUBLE_EQ(place.SourceHeight, 96);
}

TEST(PrintLayout, FitPageFillsOneDirectionAndCentresTheOther) {
  // 4800 / 400 = 12 dots a pixel leave 6600 - 200 * 12 = 4200 dots, half of them above.
  ExpectPlace(PlaceFitPage(400, 200, {4800, 6600, 600, 600}), 0, 2100, 4800, 2400);
  // 6600 / 1100 = 6 dots a pixel make a tall picture smaller: 4800 - 100 * 6 = 4200 dots are left beside it.
  const PrintPlace tall = PlaceFitPage(100, 1100, {4800, 6600, 600, 600});
  ExpectPlace(tall, 2100, 0, 600, 6600);
  EXPECT_DOUBLE_EQ(tall.SourceWidth, 100);
  EXPECT_DOUBLE_EQ(tall.SourceHeight, 1100);
}

TEST(PrintLayout, DotsNeedNotBeSquare) {
  // 600 dots to the inch across, 300 down: an area of 8 x 11 inches.
  const PrintArea area{4800, 3300, 600, 300};
  ExpectPlace(PlaceNoScale(96, 96, area), 0, 0, 600, 300);
  // A square fills the 8 inches across and as many down, 2400 dots; the 900 left are halved.
  ExpectPlace(PlaceFitPage(50, 50, area), 0, 450, 4800, 2400);
}

TEST(PrintLayout, AnEmptyPictureTakesNoPlace) {
  ExpectPlace(PlaceFitPage(0, 10, {4800, 6600, 600, 600}), 0, 0, 0, 0);
}

}  // namespace
}  // namespace shell
