#include "shell/print_layout.h"

#include "tests/model/package_text.h"

namespace shell {
namespace {

constexpr PrintArea kPage{4800, 6600, 600, 600};  // 8 x 11 inches
constexpr PrintArea kFlatDots{4800, 3300, 600, 300};

TEST(PrintLayout, PlacesThePartOfThePictureThatFits) {
  const std::pair<PrintPlace, const char*> cases[] = {
      // 480 x 192 pixels are 5 x 2 inches: 3000 x 1200 dots at 600 to the inch.
      {PlaceNoScale(480, 192, kPage), "0 0 3000 1200 480 192"},
      // The area is 8 inches = 768 pixels wide; 1000 pixels are cut there. 96 pixels in height fit.
      {PlaceNoScale(1000, 96, kPage), "0 0 4800 600 768 96"},
      {PlaceNoScale(96, 96, kFlatDots), "0 0 600 300 96 96"},
      // 4800 / 400 = 12 dots a pixel leave 6600 - 200 * 12 = 4200 dots, half of them above.
      {PlaceFitPage(400, 200, kPage), "0 2100 4800 2400 400 200"},
      // 6600 / 1100 = 6 dots a pixel make a tall picture smaller: 4800 - 100 * 6 = 4200 dots are left beside
      // it.
      {PlaceFitPage(100, 1100, kPage), "2100 0 600 6600 100 1100"},
      // A square fills the 8 inches across and as many down, 2400 dots; the 900 left are halved.
      {PlaceFitPage(50, 50, kFlatDots), "0 450 4800 2400 50 50"},
      {PlaceFitPage(0, 10, kPage), "0 0 0 0 0 0"}};
  for (const auto& [place, text] : cases)
    EXPECT_EQ(
        model::Fields(place.X, place.Y, place.Width, place.Height, place.SourceWidth, place.SourceHeight),
        text);
}

}  // namespace
}  // namespace shell
