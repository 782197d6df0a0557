#include "render/bitmap.h"

#include <gtest/gtest.h>

#include <vector>

namespace render {
namespace {

TEST(Bitmap, IsHeadersThenPaddedRowsUpwardsInBlueGreenRed) {
  // 301 pixels are 903 bytes, padded to 904 = 0x0388; 2 rows are 1808 = 0x0710, after headers of 14 + 40 =
  // 54: 1862 = 0x0746 in all. 96 pixels an inch of 0.0254 m are 3780 a metre, 0x0EC4; no colour table.
  Picture picture{301, 2, {1, 2, 3}};
  picture.Rgb.resize(301 * 2 * 3);
  picture.Rgb[301 * 3] = 4;
  const std::string file = BitmapBytes(picture);
  ASSERT_EQ(file.size(), 1862U);
  const std::vector<int> headers = {'B',  'M',  0x46, 7, 0,  0, 0,    0, 0, 0, 54,   0,    0, 0,  //
                                    40,   0,    0,    0, 45, 1, 0,    0, 2, 0, 0,    0,    1, 0,
                                    24,   0,    0,    0, 0,  0, 0x10, 7, 0, 0, 0xC4, 0x0E, 0, 0,
                                    0xC4, 0x0E, 0,    0, 0,  0, 0,    0, 0, 0, 0,    0};
  for (std::size_t i = 0; i < headers.size(); ++i)
    EXPECT_EQ(int{static_cast<unsigned char>(file[i])}, headers[i]) << i;
  EXPECT_EQ(file.substr(54, 3), std::string("\0\0\4", 3));
  EXPECT_EQ(file.substr(54 + 904, 3), "\3\2\1");
  EXPECT_EQ(BitmapBytes({4, 1, std::vector<std::uint8_t>(12)}).size(), 54U + 12U) << "no padding";
}

}  // namespace
}  // namespace render
