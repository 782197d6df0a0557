#include "shell/gl_view.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "render/offscreen.h"
#include "shell/main_form.h"

namespace {

TEST(GlView, ShowsThePixelsOfASurfaceInMemory) {
  shell::ProgramEnd end;
  end.showCritical = [](const std::string&, const std::string& text) { ADD_FAILURE() << text; };
  const shell::StartUp startUp{".", '"' + std::string(YAX_SAMPLES) + "/AAAc.yax\""};

  shell::GlView view(nullptr);
  view.resize(401, 301);
  view.show();
  shell::MainForm shown(startUp, view, end);
  shown.Form_Load();
  const render::Picture inWindow = shown.FramePicture();
  // A thread has one current context, of the window system's or of the surface in memory.
  view.DeleteContext();

  render::OffscreenSurface surface(view.Size());
  shell::MainForm hidden(startUp, surface, end);
  hidden.Form_Load();
  const render::Picture inMemory = hidden.FramePicture();

  ASSERT_EQ(inWindow.Width, view.Size().Width);
  ASSERT_EQ(inWindow.Rgb.size(), inMemory.Rgb.size());
  EXPECT_TRUE(inWindow.Rgb == inMemory.Rgb);
  EXPECT_GT(std::count(inWindow.Rgb.begin(), inWindow.Rgb.end(), 255), 1000);
}

}  // namespace
