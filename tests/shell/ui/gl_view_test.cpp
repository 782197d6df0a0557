#include "shell/ui/gl_view.h"

#include <gtest/gtest.h>

#include <QTest>
#include <algorithm>

#include "render/gl/offscreen.h"
#include "shell/main_form.h"

namespace {

TEST(GlView, ShowsThePixelsOfASurfaceInMemory) {
  shell::ProgramEnd end;
  end.ShowCritical = [](const std::string&, const std::string& text) { ADD_FAILURE() << text; };
  const shell::StartUp startUp{".", '"' + std::string(YAX_SAMPLES) + "/AAAc.yax\""};

  shell::ui::GlView view(nullptr);
  view.resize(401, 301);
  view.show();
  shell::MainForm shown(startUp, view, end);
  shown.Form_Load();
  const render::Picture inWindow = shown.FramePicture();
  // A thread has one current context, of the window system's or of the surface in memory.
  view.DeleteContext();

  render::gl::OffscreenSurface surface(view.Size());
  shell::MainForm hidden(startUp, surface, end);
  hidden.Form_Load();
  const render::Picture inMemory = hidden.FramePicture();

  ASSERT_EQ(inWindow.Width, view.Size().Width);
  ASSERT_EQ(inWindow.Rgb.size(), inMemory.Rgb.size());
  EXPECT_TRUE(inWindow.Rgb == inMemory.Rgb);
  EXPECT_GT(std::count(inWindow.Rgb.begin(), inWindow.Rgb.end(), 255), 1000);
}

/// Waits until all events about the view have arrived.
void Settle() {
  for (int i = 0; i < 3; ++i) QTest::qWait(20);
}

TEST(GlView, IsPaintedWhenUncoveredButNotAgainAfterALoadForItsNewSize) {
  shell::ProgramEnd end;
  shell::ui::GlView view(nullptr);
  shell::MainForm form({".", '"' + std::string(YAX_SAMPLES) + "/AAAc.yax\""}, view, end);
  int painted = 0;
  view.Exposed = [&] {
    ++painted;
    form.Form_Paint();
  };
  int resized = 0;
  view.Resized = [&] {
    ++resized;
    form.Form_Resize();
  };
  view.resize(400, 300);
  form.Form_Load();
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  Settle();
  EXPECT_EQ(painted, 1);

  for (const QSize& size : {QSize(440, 330), QSize(380, 280)}) {
    view.resize(size);
    Settle();
    EXPECT_EQ(painted, 1) << size.width();
  }
  // A screen of another scale gives other pixels to the same size.
  resized = 0;
  emit view.windowHandle()->screenChanged(view.screen());
  Settle();
  EXPECT_EQ(resized, 1);
  QWidget cover;
  cover.setGeometry(view.geometry());
  cover.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&cover));
  cover.hide();
  Settle();
  EXPECT_EQ(painted, 2);
}

}  // namespace
