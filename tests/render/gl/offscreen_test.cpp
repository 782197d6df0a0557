#include <GL/gl.h>
#include <GL/glu.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "render/gl/offscreen.h"
#include "render/gl/read_back.h"
#include "shell/main_form.h"
#include "tests/temporary_folder.h"

namespace {

struct Pixel {
  int red, green, blue;
};

std::ostream& operator<<(std::ostream& out, const Pixel& p) {
  return out << "(" << p.red << " " << p.green << " " << p.blue << ")";
}

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

class OffscreenTest : public testing::Test {
 protected:
  void Load(const std::string& path, const render::PixelSize& size) {
    form.reset();
    surface = std::make_unique<render::gl::OffscreenSurface>(size);
    form = std::make_unique<shell::MainForm>(shell::StartUp{".", '"' + path + '"'}, *surface, end);
    end.ShowCritical = [](const std::string&, const std::string& text) { ADD_FAILURE() << text; };
    form->Form_Load();
    ASSERT_FALSE(end.Ending());
  }

  void TakePicture() { picture = form->FramePicture(); }

  /// Where a point of the scene lies in the picture, by the frame's own matrices.
  std::pair<int, int> Place(double x, double height, double z) const {
    const render::ModelRotation& rotation = form->Navigator().Rotation;
    GLdouble model[16], projection[16], at[3];
    GLint viewport[4];
    glPushMatrix();
    glTranslatef(0.0F, 0.0F, -form->Package().CompW);
    glRotatef(rotation.RotPitch, 1.0F, 0.0F, 0.0F);
    glRotatef(rotation.RotYaw, 0.0F, 1.0F, 0.0F);
    glGetDoublev(GL_MODELVIEW_MATRIX, model);
    glPopMatrix();
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetIntegerv(GL_VIEWPORT, viewport);
    gluProject(x, height, z, model, projection, viewport, &at[0], &at[1], &at[2]);
    return {int(at[0]), picture.Height - 1 - int(at[1])};
  }

  Pixel At(double x, double height, double z) const {
    const auto [column, row] = Place(x, height, z);
    return PixelAt(picture, column, row);
  }

  using Test = bool (*)(const Pixel&);

  /// True when a pixel at a place or right beside it passes: lines are two pixels wide.
  bool Near(double x, double height, double z, Test test) const {
    const auto [column, row] = Place(x, height, z);
    bool passes = false;
    for (int i = 0; i < 9; ++i) passes |= test(PixelAt(picture, column - 1 + i % 3, row - 1 + i / 3));
    return passes;
  }

  TemporaryFolder folder;
  shell::ProgramEnd end;
  std::unique_ptr<render::gl::OffscreenSurface> surface;
  std::unique_ptr<shell::MainForm> form;
  render::Picture picture;
};

// A die with one pad to the right and, in the file, above the middle; its wire runs to the right.
constexpr char kOneWire[] =
    "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 4\nCOMPZ 0.5\nCBP A 1.5 1 0 0.6 0.6 0 R RECTANGLE\n"
    "SBP A 3 1 0 0.6 0.6 0 RECTANGLE 0 1\nWB A 1.5 1 0 3 1 0.5 0\n";

TEST_F(OffscreenTest, PartsShowInTheirColoursAtTheirPlaces) {
  PutFile(folder / "one.yax", kOneWire);
  Load(folder / "one.yax", {641, 479});
  TakePicture();
  const auto die = [&] { return At(-1.0, 0.5, 0.0); };
  // Pads and wires are drawn at minus their y; these points lie beside the wire.
  const auto pad = [&] { return At(1.5, 0.501, -1.2); };
  const auto substrate = [&] { return At(3.0, 0.0, -1.2); };
  const auto background = [&] { return At(-3.0, 0.0, 3.0); };
  EXPECT_TRUE(IsWhite(die())) << die();
  EXPECT_TRUE(IsBlue(pad())) << pad();
  EXPECT_TRUE(IsWhite(substrate())) << substrate();
  EXPECT_TRUE(IsBlack(background())) << background();
  // The loop is as high as the die and reaches as far: the last straight runs from (2 1 -1) to (3 0 -1).
  EXPECT_TRUE(Near(2.5, 0.5, -1.0, IsYellow));
  EXPECT_TRUE(Near(1.8, 1.0, -1.0, IsYellow));
  // The pad is in the upper right of the picture.
  EXPECT_GT(Place(1.5, 0.501, -1.2).first, 320);
  EXPECT_LT(Place(1.5, 0.501, -1.2).second, 240);

  form->SetBackground(false);
  TakePicture();
  EXPECT_TRUE(IsCyan(die())) << die();
  EXPECT_TRUE(IsBlue(pad())) << pad();
  EXPECT_FALSE(IsWhite(substrate())) << substrate();
  EXPECT_EQ(background().red + background().green + background().blue, 3 * 255);
  EXPECT_TRUE(Near(2.5, 0.5, -1.0, IsBlack));
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
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
  }
  EXPECT_TRUE(render::gl::ReadFrame({0, 3}).Rgb.empty());
}

TEST(OffscreenSurface, WorksBesideOthers) {
  render::gl::OffscreenSurface first({8, 8});
  ASSERT_TRUE(first.CreateContext());
  {
    render::gl::OffscreenSurface second({4, 4});
    ASSERT_TRUE(second.CreateContext());
  }
  EXPECT_TRUE(first.MakeCurrent());
  glClearColor(1.0F, 0.0F, 0.0F, 0.0F);
  glClear(GL_COLOR_BUFFER_BIT);
  EXPECT_EQ(int(render::gl::ReadFrame({8, 8}).Rgb[0]), 255);
  first.DeleteContext();
  EXPECT_FALSE(first.MakeCurrent());
}

}  // namespace
