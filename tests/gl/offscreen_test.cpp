#include <GL/gl.h>
#include <GL/glu.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <memory>

#include "render/offscreen.h"
#include "render/read_back.h"
#include "shell/main_form.h"
#include "tests/temporary_folder.h"

namespace {

struct Pixel {
  int red, green, blue;
};

Pixel PixelAt(const render::Picture& picture, int x, int y) {
  const std::uint8_t* rgb =
      picture.Rgb.data() + 3 * (std::size_t(y) * std::size_t(picture.Width) + std::size_t(x));
  return {rgb[0], rgb[1], rgb[2]};
}

// Ambient light alone gives 0.65 * 255 = 166; a face that looks at the light gets up to twice that (gray ones
// half of all), and a red highlight.
bool IsWhite(const Pixel& p) { return p.red >= 240 && p.green >= 240 && p.blue >= 240; }
bool IsBlue(const Pixel& p) { return p.red < 20 && p.green < 20 && p.blue >= 160; }
bool IsYellow(const Pixel& p) { return p.red >= 160 && p.green >= 160 && p.blue < 20; }
bool IsCyan(const Pixel& p) { return p.red < 160 && p.green >= 160 && p.blue >= 160; }
bool IsBlack(const Pixel& p) { return p.green < 20 && p.blue < 20; }

std::ostream& operator<<(std::ostream& out, const Pixel& p) {
  return out << "(" << p.red << " " << p.green << " " << p.blue << ")";
}

class OffscreenTest : public testing::Test {
 protected:
  void Load(const std::string& path, const render::PixelSize& size) {
    form.reset();
    surface = std::make_unique<render::OffscreenSurface>(size);
    form = std::make_unique<shell::MainForm>(shell::StartUp{".", '"' + path + '"'}, *surface, end);
    end.showCritical = [](const std::string&, const std::string& text) { ADD_FAILURE() << text; };
    form->Form_Load();
    ASSERT_FALSE(end.Ending());
  }

  /// Draws a frame and keeps it.
  void TakePicture() { picture = form->FramePicture(); }

  /// Where a point of the scene lies in the picture, as the frame's own matrices tell.
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

  /// True when a pixel at a place or right beside it passes: lines are two pixels wide.
  template <class Test>
  bool Near(double x, double height, double z, Test&& test) const {
    const auto [column, row] = Place(x, height, z);
    for (int dy = -1; dy <= 1; ++dy) {
      for (int dx = -1; dx <= 1; ++dx) {
        if (test(PixelAt(picture, column + dx, row + dy))) return true;
      }
    }
    return false;
  }

  template <class Test>
  int Count(Test&& test) const {
    int count = 0;
    for (int y = 0; y < picture.Height; ++y) {
      for (int x = 0; x < picture.Width; ++x) count += test(PixelAt(picture, x, y));
    }
    return count;
  }

  TemporaryFolder folder;
  shell::ProgramEnd end;
  std::unique_ptr<render::OffscreenSurface> surface;
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
  // Pads and wires lie at minus their y, beside the wire.
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

TEST_F(OffscreenTest, EverySampleShowsItsPads) {
  const std::pair<const char*, bool> samples[] = {{"AAAc", true},          {"bga332", true},
                                                  {"caravel-qfn64", true}, {"flipchip-bigblade", false},
                                                  {"lqfp100", true},       {"stacked-ram", true}};
  for (const auto& [name, wires] : samples) {
    Load(std::string(YAX_SAMPLES) + "/" + name + ".yax", {640, 480});
    TakePicture();
    EXPECT_GT(Count(IsBlack), 20000) << name;
    EXPECT_GT(Count(IsWhite), 10000) << name;
    EXPECT_GT(Count(IsBlue), 30) << name;
    EXPECT_EQ(Count(IsYellow) > 200, wires) << name << " " << Count(IsYellow);
  }
}

TEST_F(OffscreenTest, RebuildsTakeFreshNamesAndNoMemory) {
  Load(std::string(YAX_SAMPLES) + "/bga332.yax", {64, 48});
  const auto used = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
  for (int build = 0; build < 10; ++build) form->RebuildAndRepaint();
  glFinish();
  const std::size_t before = used();
  const GLuint next = glGenLists(1);
  for (int build = 0; build < 50; ++build) form->RebuildAndRepaint();
  glFinish();
  // Each kept list would hold more than three megabytes.
  EXPECT_LT(used(), before + 4'000'000);
  EXPECT_TRUE(glIsList(next + 50));
  EXPECT_EQ(glGenLists(1), next + 51);
}

TEST_F(OffscreenTest, LoadsStartAgainWithAFreshContext) {
  PutFile(folder / "one.yax", kOneWire);
  Load(folder / "one.yax", {100, 75});
  TakePicture();
  const render::Picture first = picture;
  form->RebuildAndRepaint();
  EXPECT_TRUE(glIsList(2));
  form->Form_Load();
  EXPECT_FALSE(glIsList(2));
  TakePicture();
  EXPECT_TRUE(picture.Rgb == first.Rgb);
}

TEST(ReadFrame, GivesTheTopRowFirstAtAnyWidth) {
  for (const render::PixelSize& size : {render::PixelSize{1, 3}, {3, 2}, {5, 1}, {401, 301}}) {
    render::OffscreenSurface surface(size);
    ASSERT_TRUE(surface.CreateContext());
    // Blue, but for a red row at the bottom with a green pixel at its right end.
    const auto fill = [](int x, int y, int width, int height, float red, float green, float blue) {
      glScissor(x, y, width, height);
      glClearColor(red, green, blue, 0.0F);
      glClear(GL_COLOR_BUFFER_BIT);
    };
    glEnable(GL_SCISSOR_TEST);
    fill(0, 0, size.Width, size.Height, 0, 0, 1);
    fill(0, 0, size.Width, 1, 1, 0, 0);
    fill(size.Width - 1, 0, 1, 1, 0, 1, 0);
    const render::Picture picture = render::ReadFrame(size);
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
    for (int y = 0; y < size.Height; ++y) {
      for (int x = 0; x < size.Width; ++x) {
        const bool bottom = y == size.Height - 1;
        const bool corner = bottom && x == size.Width - 1;
        const Pixel pixel = PixelAt(picture, x, y);
        ASSERT_EQ(pixel.blue, bottom ? 0 : 255) << x << " " << y;
        ASSERT_EQ(pixel.red, bottom && !corner ? 255 : 0) << x << " " << y;
        ASSERT_EQ(pixel.green, corner ? 255 : 0) << x << " " << y;
      }
    }
  }
}

TEST(OffscreenSurface, StandsBesideOthers) {
  render::OffscreenSurface first({8, 8});
  ASSERT_TRUE(first.CreateContext());
  {
    render::OffscreenSurface second({4, 4});
    ASSERT_TRUE(second.CreateContext());
  }
  EXPECT_TRUE(first.MakeCurrent());
  glClearColor(1.0F, 0.0F, 0.0F, 0.0F);
  glClear(GL_COLOR_BUFFER_BIT);
  EXPECT_EQ(int(render::ReadFrame({8, 8}).Rgb[0]), 255);
  first.DeleteContext();
  EXPECT_FALSE(first.MakeCurrent());
}

}  // namespace
