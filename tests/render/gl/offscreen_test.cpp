#include <GL/gl.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "render/gl/offscreen.h"
#include "render/gl/read_back.h"
#include "shell/main_form.h"
#include "tests/temporary_folder.h"

namespace {

struct Pixel {
  int red, green, blue;
};

Pixel PixelAt(const render::Picture& picture, int x, int y) {
  const std::uint8_t* rgb = &picture.Rgb.at(3 * static_cast<std::size_t>(y * picture.Width + x));
  return {rgb[0], rgb[1], rgb[2]};
}

// Ambient light alone gives 0.65 * 255 = 166; a face that looks at the light gets up to twice that (gray ones
// half of all), and a red highlight.
bool IsWhite(const Pixel& p) { return p.red >= 240 && p.green >= 240 && p.blue >= 240; }
bool IsBlue(const Pixel& p) { return p.red < 20 && p.green < 20 && p.blue >= 160; }
bool IsYellow(const Pixel& p) { return p.red >= 160 && p.green >= 160 && p.blue < 20; }
bool IsCyan(const Pixel& p) { return p.red < 160 && p.green >= 160 && p.blue >= 160; }
bool IsBlack(const Pixel& p) { return p.green < 20 && p.blue < 20; }

TEST(OffscreenSurface, ShowsPartsInTheirColoursAtTheirPlaces) {
  // A die with one pad to the right and, in the file, above the middle; its wire runs to the right.
  const TemporaryFolder folder;
  const std::string file = PutFile(folder / "one.yax",
                                   "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 4\nCOMPZ 0.5\n"
                                   "CBP A 1.5 1 0 0.6 0.6 0 R RECTANGLE\n"
                                   "SBP A 3 1 0 0.6 0.6 0 RECTANGLE 0 1\nWB A 1.5 1 0 3 1 0.5 0\n");
  render::gl::OffscreenSurface surface({641, 479});
  shell::ProgramEnd end;
  shell::MainForm form({".", '"' + file + '"'}, surface, end);
  form.Form_Load();
  ASSERT_FALSE(end.Ending());
  // The eye is 5 + COMPW = 9 above the substrate. The picture's upper half covers 30 degrees, so at the depth
  // d a unit is 239.5 / tan 30 / d = 414.8 / d pixels; the heading of 1.56 instead of pi / 2 moves all by
  // 0.0108 * 414.8 = 4.5.
  render::Picture picture;
  const auto passes = [&](double x, double height, double z, bool (*test)(const Pixel&), int around = 0) {
    const double unit = 414.8 / (9.0 - height);
    const int column = int(320.5 - 4.5 + x * unit), row = int(239.5 + z * unit);
    bool any = false;
    for (int i = -around; i <= around; ++i)
      for (int k = -around; k <= around; ++k) any |= test(PixelAt(picture, column + i, row + k));
    return any;
  };
  for (const bool black : {true, false}) {
    form.SetBackground(black);
    picture = form.FramePicture();
    // Pads and wires are drawn at minus their y; the pads' points lie beside the wire.
    EXPECT_TRUE(passes(-1.0, 0.5, 0.0, black ? IsWhite : IsCyan)) << "die";
    EXPECT_TRUE(passes(1.5, 0.501, -1.2, IsBlue)) << "pad";
    EXPECT_EQ(passes(3.0, 0.0, -1.2, IsWhite), black) << "substrate pad";
    EXPECT_TRUE(passes(-3.0, 0.0, 3.0, black ? IsBlack : IsWhite)) << "background";
    // The loop, two pixels wide, is as high as the die and reaches as far: its last straight runs from (2 1
    // -1) to (3 0 -1).
    EXPECT_TRUE(passes(2.5, 0.5, -1.0, black ? IsYellow : IsBlack, 1)) << "drop";
    EXPECT_TRUE(passes(1.8, 1.0, -1.0, black ? IsYellow : IsBlack, 1)) << "level run";
  }
}

TEST(ReadFrame, GivesTheTopRowFirstAtAnyWidth) {
  for (const render::PixelSize& size : {render::PixelSize{1, 3}, {3, 2}, {5, 1}, {401, 301}}) {
    render::gl::OffscreenSurface surface(size);
    ASSERT_TRUE(surface.CreateContext());
    // Blue, but for a red row at the bottom with a green pixel at its right end.
    const auto fill = [](int x, int width, int height, float red, float green, float blue) {
      glScissor(x, 0, width, height);
      glClearColor(red, green, blue, 0.0F);
      glClear(GL_COLOR_BUFFER_BIT);
    };
    glEnable(GL_SCISSOR_TEST);
    fill(0, size.Width, size.Height, 0, 0, 1);
    fill(0, size.Width, 1, 1, 0, 0);
    fill(size.Width - 1, 1, 1, 0, 1, 0);
    const auto pixels = static_cast<std::size_t>(size.Width * size.Height);
    const auto row = static_cast<std::size_t>(size.Width);
    std::vector<std::uint8_t> expected(3 * pixels);
    for (std::size_t i = 0; i < pixels; ++i)
      expected[3 * i + (i == pixels - 1 ? 1 : i >= pixels - row ? 0 : 2)] = 255;
    EXPECT_TRUE(render::gl::ReadFrame(size).Rgb == expected) << size.Width;
    std::vector<std::uint8_t> lowest(3 * row);
    render::gl::ReadRows(size, false, size.Height - 1, 1, lowest.data());
    EXPECT_TRUE(std::equal(lowest.rbegin(), lowest.rend(), expected.rbegin())) << size.Width;
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
  }
  EXPECT_TRUE(render::gl::ReadFrame({0, 3}).Rgb.empty());
}

}  // namespace
