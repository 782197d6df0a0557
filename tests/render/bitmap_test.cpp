#include "render/bitmap.h"

#include <gtest/gtest.h>

#include <vector>

namespace render {
namespace {

using Bytes = std::vector<int>;

Bytes Part(const std::string& file, std::size_t from, std::size_t count) {
  Bytes bytes;
  for (const char c : file.substr(from, count)) bytes.push_back(static_cast<unsigned char>(c));
  return bytes;
}

TEST(Bitmap, HeadersDescribeTheRows) {
  // 3 pixels are 9 bytes, padded to 12; 2 rows are 24, after headers of 14 + 40 = 54: 78 in all.
  const std::string file = BitmapBytes({3, 2, std::vector<std::uint8_t>(18)});
  ASSERT_EQ(file.size(), 78U);
  EXPECT_EQ(Part(file, 0, 14), (Bytes{'B', 'M', 78, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0}));
  EXPECT_EQ(Part(file, 14, 24),
            (Bytes{40, 0, 0, 0, 3, 0, 0, 0, 2, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 24, 0, 0, 0}));
  // 96 pixels an inch of 0.0254 m are 3780 a metre, 0x0EC4; no colour table.
  EXPECT_EQ(Part(file, 38, 16), (Bytes{0xC4, 0x0E, 0, 0, 0xC4, 0x0E, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(Bitmap, RowsRunUpwardsInBlueGreenRedAndArePadded) {
  const std::string three = BitmapBytes({3,
                                         2,
                                         {1, 2, 3, 4, 5, 6, 7, 8, 9,                   // top row
                                          11, 12, 13, 14, 15, 16, 17, 18, 255}});      // bottom row
  EXPECT_EQ(Part(three, 54, 24), (Bytes{13, 12, 11, 16, 15, 14, 255, 18, 17, 0, 0, 0,  //
                                        3,  2,  1,  6,  5,  4,  9,   8,  7,  0, 0, 0}));
  // One pixel is 3 bytes: padding of 1. Four are 12: none.
  EXPECT_EQ(Part(BitmapBytes({1, 1, {7, 8, 9}}), 54, 9), (Bytes{9, 8, 7, 0}));
  EXPECT_EQ(BitmapBytes({4, 1, std::vector<std::uint8_t>(12)}).size(), 54U + 12U);
}

TEST(Bitmap, SizesTakeMoreThanOneByte) {
  // 301 pixels are 903 bytes, padded to 904; 200 rows are 180,800 = 0x02C240, with headers 180,854 =
  // 0x02C276.
  const std::string file = BitmapBytes({301, 200, std::vector<std::uint8_t>(301 * 200 * 3)});
  ASSERT_EQ(file.size(), 180854U);
  EXPECT_EQ(Part(file, 2, 4), (Bytes{0x76, 0xC2, 0x02, 0}));
  EXPECT_EQ(Part(file, 18, 8), (Bytes{0x2D, 0x01, 0, 0, 200, 0, 0, 0}));
  EXPECT_EQ(Part(file, 34, 4), (Bytes{0x40, 0xC2, 0x02, 0}));
}

}  // namespace
}  // namespace render
