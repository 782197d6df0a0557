#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionSlider>

#include "shell/help_window.h"
#include "tests/shell/main_window_fixture.h"

namespace shell {
namespace {

/// The camera's matrix by hand, in GL's order (column by column): the view's right, up and backward axes as
/// rows, and the eye taken to the origin.
std::array<double, 16> Looking(const std::array<double, 3>& eye, double heading, double look) {
  const double length = std::hypot(100.0, look);
  const double c = std::cos(heading), s = std::sin(heading), flat = 100 / length, rise = look / length;
  const double axes[3][3] = {{s, 0, c}, {-c * rise, flat, s * rise}, {-c * flat, -rise, s * flat}};
  std::array<double, 16> matrix{};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t i = 0; i < 3; ++i) {
      matrix[i * 4 + row] = axes[row][i];
      matrix[12 + row] -= axes[row][i] * eye[i];
    }
  }
  matrix[15] = 1;
  return matrix;
}

class MainWindowInput : public MainWindowTest {
 protected:
  void ExpectCamera(const std::array<double, 3>& eye, double heading, double look, const char* after) {
    const std::array<double, 16> wanted = Looking(eye, heading, look), found = CameraMatrix();
    for (std::size_t i = 0; i < 16; ++i) EXPECT_NEAR(found[i], wanted[i], 1e-5) << after << ", element " << i;
  }

  /// Presses the button at the view's middle and moves from there, step by step.
  std::string Drag(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint step, int steps) {
    Restart();
    QPoint at = View().rect().center();
    Mouse(QTest::MousePress, at, button, modifiers);
    for (int i = 0; i < steps; ++i) Mouse(QTest::MouseMove, at += step, Qt::NoButton, modifiers);
    Mouse(QTest::MouseRelease, at, button, modifiers);
    return Changes();
  }

  /// Width and height of what is lit in the picture.
  QSize LitSize() {
    const render::Picture picture = Form().FramePicture();
    QRect lit;
    for (int y = 0; y < picture.Height; ++y)
      for (int x = 0; x < picture.Width; ++x)
        if (picture.Rgb[static_cast<std::size_t>(y * picture.Width + x) * 3] > 40) lit |= QRect(x, y, 1, 1);
    return lit.size();
  }
};

TEST_F(MainWindowInput, KeysMoveTheNextFramesCameraWhateverHasTheFocus) {
  Open();
  ExpectCamera({0, 0, 5}, 1.56, 0, "start");
  constexpr double kTurn = 10 * 3.142 / 180;
  struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::array<double, 3> eye;
    double heading, look;
  };
  const Case cases[] = {
      {Qt::Key_Up, Qt::AltModifier, {0, 0, 4}, 1.56, 0},
      {Qt::Key_Up, Qt::AltModifier | Qt::KeypadModifier, {0, 0, 4}, 1.56, 0},
      {Qt::Key_Right, Qt::AltModifier | Qt::ControlModifier, {1, 0, 5}, 1.56, 0},
      {Qt::Key_Down, Qt::AltModifier | Qt::ControlModifier, {0, -1, 5}, 1.56, 0},
      {Qt::Key_Left, Qt::ControlModifier, {0, 0, 5}, 1.56 + kTurn, 0},
      {Qt::Key_R, Qt::ShiftModifier, {0, 0, 5}, 1.56 - kTurn, 0},
      {Qt::Key_U, {}, {0, 0, 5}, 1.56, 10},
      {Qt::Key_Minus, {}, {0, 0, 6}, 1.56, 0},
      {Qt::Key_Underscore, Qt::ShiftModifier, {0, 0, 7}, 1.56, 0},
      {Qt::Key_Plus, Qt::KeypadModifier, {0, 0, 4}, 1.56, 0},
      {Qt::Key_Equal, {}, {0, 0, 4}, 1.56, 0},
      {Qt::Key_Up, Qt::ShiftModifier | Qt::AltModifier, {0, 0, 5}, 1.56, 0},
      {Qt::Key_X, {}, {0, 0, 5}, 1.56, 0},
  };
  for (const bool dummy : {false, true}) {
    dummy ? Dummy().setFocus() : View().setFocus();
    for (const Case& one : cases) {
      Restart();
      Key(one.key, one.modifiers);
      ExpectCamera(one.eye, one.heading, one.look,
                   QKeySequence(QKeyCombination(one.modifiers, one.key)).toString().toUtf8());
    }
  }
}

TEST_F(MainWindowInput, TurningTheModelTurnsThePicture) {
  Open({600, 600});
  const QSize before = LitSize();
  EXPECT_GT(before.height(), before.width() * 3 / 2);
  // Nine times ten degrees are a right angle: the sides change places.
  for (int i = 0; i < 9; ++i) Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Changes(), "yaw90");
  const QSize after = LitSize();
  EXPECT_GT(after.width(), after.height() * 3 / 2);
}

TEST_F(MainWindowInput, AKeyHeldDownRepeatsAndItsReleasesAreNotTheHands) {
  Open();
  const auto send = [this](QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, bool again) {
    QKeyEvent event(type, key, modifiers, QString(), again);
    QApplication::sendEvent(window->windowHandle(), &event);
  };
  // As a screen reader's copies come: the modifier key's own bit is inverted.
  for (const Qt::KeyboardModifiers own :
       {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers()}) {
    Restart();
    send(QEvent::KeyPress, Qt::Key_Shift, own, false);
    EXPECT_EQ(window->cursor().shape(), Qt::UpArrowCursor);
    for (int i = 0; i < 3; ++i) {
      send(QEvent::KeyPress, Qt::Key_Left, Qt::ShiftModifier, i > 0);
      if (i < 2) send(QEvent::KeyRelease, Qt::Key_Left, {}, true);
    }
    EXPECT_EQ(Changes(), "yaw30");
    EXPECT_EQ(window->cursor().shape(), Qt::UpArrowCursor);
    send(QEvent::KeyRelease, Qt::Key_Shift, own ^ Qt::ShiftModifier, false);
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
  }
}

TEST_F(MainWindowInput, EveryMouseMoveCountsOnce) {
  Open();
  // Drags from the view's middle; the numbers are moves times the step that each makes.
  EXPECT_EQ(Drag(Qt::LeftButton, {}, {-3, 2}, 5), "pitch95 yaw5");
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::ShiftModifier, {-3, 2}, 5), "pitch100 yaw15");
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::ControlModifier, {-3, -2}, 5), "look10 turn15");
  EXPECT_EQ(Drag(Qt::MiddleButton, {}, {-2, -2}, 8), "x-2 y2");        // every fourth
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::AltModifier, {0, -2}, 8), "z1");  // two, every fourth
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::ControlModifier | Qt::AltModifier, {2, 0}, 18), "x2");  // every ninth
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier, {2, 2}, 5), "");
  EXPECT_EQ(Drag(Qt::RightButton, Qt::ShiftModifier, {2, 2}, 5), "");
  Restart();
  for (int i = 1; i <= 3; ++i) Mouse(QTest::MouseMove, {10 * i, 10});
  EXPECT_EQ(Nav().Mouse.PanTick, 3);  // moves without a button are tracked
}

TEST_F(MainWindowInput, ADoubleClickTurnsWalkModeOnAndAnotherOff) {
  Open();
  for (const bool on : {true, false}) {
    Mouse(QTest::MouseDClick, {50, 50}, Qt::LeftButton);
    EXPECT_EQ(Nav().WalkMode, on);
    EXPECT_EQ(window->cursor().shape(), on ? Qt::UpArrowCursor : Qt::ArrowCursor);
    EXPECT_EQ(Drag(Qt::LeftButton, {}, {-3, 0}, 4), on ? "yaw12" : "yaw4");
    QTest::qWait(QApplication::doubleClickInterval() + 20);
  }
  Mouse(QTest::MouseDClick, {90, 90}, Qt::RightButton, Qt::ShiftModifier);
  EXPECT_FALSE(Nav().WalkMode);
}

TEST_F(MainWindowInput, TheWheelMovesOneStepFromEveryWindow) {
  Open();
  Menu().popup(window->mapToGlobal(QPoint(20, 20)));
  HelpWindow help(window.get());
  help.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&help));
  QWidget* const places[] = {&View(), window.get(), &Named<QScrollBar>("Pitch"), &Menu(), &help};
  for (QWidget* place : places) {
    Restart();
    Wheel(*place, {0, 240});
    EXPECT_EQ(Changes(), "z4") << place->metaObject()->className();
    Wheel(*place, {0, -120});
    Wheel(*place, {120, 0});
    Wheel(*place, {-120, 0}, Qt::AltModifier);  // Alt turns the wheel's axis
    EXPECT_EQ(Changes(), "z6") << place->metaObject()->className();
  }
  window->close();
  Wheel(help, {0, 120});
  EXPECT_EQ(Changes(), "z6");
}

TEST_F(MainWindowInput, ScrollBarsTurnTheModelByLinePageAndDrag) {
  Open();
  QScrollBar& yaw = Named<QScrollBar>("Yaw");
  QStyleOptionSlider option;
  option.initFrom(&yaw);
  option.subControls = QStyle::SC_All;
  option.orientation = Qt::Horizontal;
  option.minimum = -180;
  option.maximum = 180;
  option.pageStep = 10;
  option.sliderPosition = option.sliderValue = 0;
  option.upsideDown = false;
  const auto part = [&](QStyle::SubControl control) {
    return yaw.style()->subControlRect(QStyle::CC_ScrollBar, &option, control, &yaw).center();
  };
  QTest::mouseClick(&yaw, Qt::LeftButton, {}, part(QStyle::SC_ScrollBarAddLine));
  EXPECT_EQ(Changes(), "yaw1");
  QTest::mouseClick(&yaw, Qt::LeftButton, {}, part(QStyle::SC_ScrollBarAddPage));
  EXPECT_EQ(Changes(), "yaw11");
  QTest::mouseClick(&yaw, Qt::LeftButton, {}, part(QStyle::SC_ScrollBarSubLine));
  EXPECT_EQ(Changes(), "yaw10");
  Restart();
  const QPoint thumb = part(QStyle::SC_ScrollBarSlider);
  QTest::mousePress(&yaw, Qt::LeftButton, {}, thumb);
  QTest::mouseMove(&yaw, thumb + QPoint(yaw.width(), 0));
  EXPECT_EQ(Changes(), "yaw180");  // before the release
  QTest::mouseRelease(&yaw, Qt::LeftButton, {}, thumb + QPoint(yaw.width(), 0));
  Key(Qt::Key_Left);
  EXPECT_EQ(yaw.value(), -179);
  Nav().ScrollPitch.SetValue(1000);
  EXPECT_EQ(Named<QScrollBar>("Pitch").value(), 270);
}

TEST_F(MainWindowInput, ButtonsAndArrowsStepAndOnlyTheViewAndDummyTakeTheFocus) {
  Open();
  struct Case {
    const char* name;
    const char* changes;
    bool dummy;  ///< the click gives Dummy the focus
  };
  constexpr Case kCases[] = {
      {"In +", "z4", false},           {"Out -", "z6", false},       {"< < < < <", "turn10", false},
      {"> > > > >", "turn-10", false}, {"U", "look10", false},       {"D", "look-10", false},
      {"Camera left", "x-1", true},    {"Camera right", "x1", true}, {"Camera up", "y1", true},
      {"Camera down", "y-1", true},
  };
  for (const Case& one : kCases) {
    Restart();
    View().setFocus();
    QTest::mouseClick(&Named<QPushButton>(one.name), Qt::LeftButton);
    EXPECT_EQ(Changes(), one.changes) << one.name;
    EXPECT_EQ(window->focusWidget(), one.dummy ? static_cast<QWidget*>(&Dummy()) : &View()) << one.name;
  }
  for (int i = 0; i < 5; ++i) {
    Key(i == 3 ? Qt::Key_Backtab : Qt::Key_Tab);
    EXPECT_TRUE(View().hasFocus() || Dummy().hasFocus());
  }
  QTest::mouseClick(&Dummy(), Qt::LeftButton);
  EXPECT_EQ(Changes(), "");  // as Home
  EXPECT_TRUE(Dummy().hasFocus());
}

TEST_F(MainWindowInput, TheMenuOpensByMouseKeysAndScreenReaderAndKeepsTheKeys) {
  Open();
  const auto openedAndClosed = [this](const char* by) {
    EXPECT_TRUE(Menu().isVisible()) << by;
    // These are the menu's now.
    Key(Qt::Key_Down);
    Key(Qt::Key_U);
    EXPECT_EQ(Changes(), "") << by;
    QTest::keyClick(&Menu(), Qt::Key_Escape);
    EXPECT_FALSE(Menu().isVisible()) << by;
  };
  Mouse(QTest::MousePress, {200, 150}, Qt::RightButton);
  EXPECT_EQ(Menu().pos(), View().mapToGlobal(QPoint(200, 150)));
  openedAndClosed("press");
  Mouse(QTest::MouseRelease, {200, 150}, Qt::RightButton);
  Key(Qt::Key_Menu);
  openedAndClosed("Menu");
  Key(Qt::Key_F10, Qt::ShiftModifier);
  openedAndClosed("Shift+F10");
  View().menuAsked();
  openedAndClosed("ShowMenu");
  for (const Qt::KeyboardModifiers modifiers : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
    Mouse(QTest::MouseClick, {200, 150}, Qt::RightButton, modifiers);
    EXPECT_FALSE(Menu().isVisible());
  }
  EXPECT_FALSE(status);
  Key(Qt::Key_Escape, Qt::ControlModifier);
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace shell
