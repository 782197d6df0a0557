#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "render/bitmap.h"
#include "render/gl/framebuffer.h"
#include "render/gl/offscreen.h"
#include "setup/setup_form.h"
#include "shell/main_form.h"
#include "tests/setup/answering_dialog.h"
#include "tests/yax/yax_program.h"

namespace {

/// The window's load with the setup form at its end, on a surface in memory.
class Window {
 public:
  Window(const std::string& path, const render::PixelSize& size)
      : surface_(size), form_({".", '"' + path + '"'}, surface_, end_) {
    form_.Actions.ResetWireBondSetup = [this] { setup_.RunCommand3(); };
    setup_.Actions.RebuildAndRepaint = [this] { form_.RebuildAndRepaint(); };
    form_.Form_Load();
  }

  shell::MainForm& Form() { return form_; }
  /// What its command to save a picture writes.
  std::string SavedPicture() { return render::BitmapBytes(form_.FramePicture()); }

 private:
  shell::ProgramEnd end_;
  render::gl::OffscreenSurface surface_;
  shell::MainForm form_;
  setup::AnsweringDialog dialog_;
  setup::Estimator estimator_{".", "."};
  setup::SetupForm setup_{form_.Settings(), form_.Package(), dialog_, estimator_};
};

TEST_F(YaxTest, RendersThePixelsOfTheWindow) {
  const render::PixelSize size{641, 479};
  for (const char* name : {"AAAc", "bga332", "flipchip-bigblade", "stacked-ram"}) {
    Window window(SamplePath(name), size);
    const render::Picture picture = window.Form().FramePicture();
    EXPECT_GT(std::count(picture.Rgb.begin(), picture.Rgb.end(), 255), 30000) << name << " is seen";
    EXPECT_TRUE(PictureOf("render --size 641x479 " + SamplePath(name) + " -o") ==
                render::BitmapBytes(picture))
        << name;

    render::gl::Framebuffer framebuffer;
    ASSERT_TRUE(framebuffer.Bind(size));
    window.Form().FramePicture();
    std::vector<std::uint8_t> rgb(picture.Rgb.size());
    framebuffer.ReadRows(0, size.Height, rgb.data());
    EXPECT_TRUE(rgb == picture.Rgb) << name << " in a framebuffer object";
  }
}

TEST_F(YaxTest, RendersAnyStateOfTheWindow) {
  Window window(SamplePath("stacked-ram"), {400, 300});
  window.Form().SetBackground(false);
  window.Form().Navigator().Camera = {.CamX = -2, .CamY = 3, .CamZ = 6, .CamYaw = 1.3F, .CamLook = -40};
  window.Form().Navigator().Rotation = {.RotPitch = 20.0F, .RotYaw = -35.0F};
  window.Form().Settings().BaseLoopHeight = 0.9F;
  window.Form().Settings().StackExtension = model::kEdgeOfBaseDie;
  window.Form().Selection().Shown = true;
  for (const model::WireNameRec& wire : window.Form().Package().WireNames)
    if (wire.Tier == "2") window.Form().Selection().Names.insert(wire.Name);
  window.Form().RebuildAndRepaint();
  const std::string command =
      "render --size 400x300 --background white --cam -2,3,6 --heading 1.3 --look -40 --pitch 20 --yaw -35 "
      "--base-loop-height 0.9 --stack-extension edge --tier 2 " +
      SamplePath("stacked-ram") + " -o";
  EXPECT_TRUE(PictureOf(command) == window.SavedPicture());
}

TEST_F(YaxTest, WritesPngToAFileAndToStandardOutput) {
  const std::string one = OneWire();
  const std::string common = "render --size 61x47 " + one + " -o ";
  ASSERT_EQ(Yax(common + (folder / "a.png")).status, 0);
  const std::string bytes = GetFile(folder / "a.png");
  EXPECT_TRUE(Yax(common + "-").out == bytes);
  // The option comes before the name.
  ASSERT_EQ(Yax(common + (folder / "b.bmp") + " --format png").status, 0);
  EXPECT_TRUE(GetFile(folder / "b.bmp") == bytes);
  const std::string bitmap = Window(one, {61, 47}).SavedPicture();
  EXPECT_TRUE(Yax(common + "- --format bmp").out == bitmap);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_TRUE(png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()));
  EXPECT_EQ(image.format, png_uint_32(PNG_FORMAT_RGB));
  image.format = PNG_FORMAT_RGB;
  render::Picture picture{int(image.width), int(image.height),
                          std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
  ASSERT_TRUE(png_image_finish_read(&image, nullptr, picture.Rgb.data(), 0, nullptr));
  EXPECT_TRUE(render::BitmapBytes(picture) == bitmap);
}

TEST_F(YaxTest, ReportsInOneLineThatThereIsNoGl) {
  for (const char* environment :
       {"__EGL_VENDOR_LIBRARY_FILENAMES=/nonexistent", "LIBGL_DRIVERS_PATH=/nonexistent"}) {
    const Ended ended = Yax("render " + OneWire() + " -o " + (folder / "a.png"), environment);
    EXPECT_EQ(ended.status, 2) << environment;
    EXPECT_EQ(ended.err, "yax: OpenGL is not usable; install Mesa's EGL and its software driver\n")
        << environment;
  }
}

TEST_F(YaxTest, DrawsBeyondThePixelBuffersSizeUpToTheViewports) {
  // Mesa's software driver: pixel buffers to 4096, viewports to 16384.
  render::gl::OffscreenSurface probe({1, 1});
  ASSERT_TRUE(probe.CreateContext());
  const int largest = probe.Largest().Width;
  const std::string common = "render " + OneWire() + " -o " + (folder / "a.bmp") + " --size ";
  ASSERT_EQ(Yax(common + std::to_string(largest) + "x9").status, 0);
  // Header 54 bytes, rows padded to 4.
  EXPECT_EQ(GetFile(folder / "a.bmp").size(), 54 + std::size_t((largest * 3 + 3) / 4 * 4) * 9);
  std::remove((folder / "a.bmp").c_str());

  const Ended beyond = Yax(common + "9x" + std::to_string(probe.Largest().Height + 1));
  EXPECT_EQ(beyond.status, 2);
  EXPECT_NE(beyond.err.find("--size 9x"), std::string::npos) << beyond.err;
  EXPECT_EQ(beyond.Lines(), 1U);
  EXPECT_EQ(GetFile(folder / "a.bmp"), "");
}

TEST_F(YaxTest, NamedViewsShowTheWholePackage) {
  for (const char* view : {"left", "iso"}) {
    const std::string bytes =
        PictureOf("render --size 200x150 " + SamplePath("AAAc") + " --view " + view + " -o").substr(54);
    int inside = 0, edge = 0, outer = 0;
    for (int y = 0; y < 150; ++y) {
      for (int x = 0; x < 200; ++x) {
        if (bytes.substr(std::size_t(y * 200 + x) * 3, 3) == std::string(3, '\0')) continue;
        ++inside;
        edge += x == 0 || x == 199 || y == 0 || y == 149;
        // The margin is 5 % of the half, and the outermost parts are thinner than a pixel where seen edge on.
        outer += (x < 30 || x > 169 || y < 20 || y > 129);
      }
    }
    EXPECT_GT(inside, 300) << view;
    EXPECT_EQ(edge, 0) << view;
    EXPECT_GT(outer, 0) << view;
  }
}

TEST_F(YaxTest, CompletesCommandsOptionsAndValuesInBash) {
  PutFile(folder / "script", Yax("completion bash").out);
  const auto completed = [&](const std::string& words, int at) {
    const std::string command = "bash -c 'source " + (folder / "script") + "; COMP_WORDS=(" + words +
                                "); COMP_CWORD=" + std::to_string(at) + "; _yax; echo ${COMPREPLY[@]}' >" +
                                (folder / "out") + " 2>&1";
    return std::system(command.c_str()) == 0 ? GetFile(folder / "out") : "failed: " + GetFile(folder / "out");
  };
  EXPECT_EQ(completed("yax re", 1), "render\n");
  EXPECT_EQ(completed("yax render --ba", 2), "--background --base-loop-height --base-extension\n");
  EXPECT_EQ(completed("yax render --background w", 3), "white\n");
  EXPECT_EQ(completed("yax render --size \"\"", 3), "\n");
  EXPECT_EQ(completed("yax completion f", 2), "fish\n");
  EXPECT_EQ(completed("yax render -o " + (folder / "scr"), 3), (folder / "script") + "\n");
  EXPECT_EQ(completed("yax render " + (folder / "scr"), 2), (folder / "script") + "\n");
}

}  // namespace
