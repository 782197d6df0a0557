#include <xcb/xcb.h>

#include <QAbstractEventDispatcher>
#include <QComboBox>
#include <QCompleter>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QProcess>
#include <QScrollBar>
#include <QWheelEvent>

#include "shell/ui/help_window.h"
#include "shell/ui/view_controls.h"
#include "tests/shell/ui/main_window_fixture.h"

namespace shell {
namespace {

class MainWindowInput : public MainWindowTest {
 protected:
  ui::DummyBox& Dummy() { return *window->findChild<ui::DummyBox*>(); }

  void Send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {}, bool again = false,
            quint32 keycode = 0) {
    QKeyEvent event(type, key, modifiers, keycode, 0, 0, QString(), again);
    QApplication::sendEvent(window->windowHandle(), &event);
  }

  /// A key event as it comes from the X server, for the filters before Qt.
  static void XKey(int type, std::uint8_t keycode, std::uint32_t time) {
    xcb_key_press_event_t event{};
    event.response_type = static_cast<std::uint8_t>(type);
    event.detail = keycode;
    event.time = time;
    qintptr result = 0;
    QCoreApplication::eventDispatcher()->filterNativeEvent("xcb_generic_event_t", &event, &result);
  }

  static void Wheel(QWidget& over, QPoint delta, Qt::KeyboardModifiers modifiers = {}) {
    const QPointF at = over.rect().center();
    QWheelEvent event(at, over.mapToGlobal(at), {}, delta, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(over.windowHandle() ? over.windowHandle() : over.window()->windowHandle(),
                            &event);
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
};

TEST_F(MainWindowInput, KeysReachTheCameraWhateverHasTheFocus) {
  Open();
  constexpr auto kAlt = Qt::AltModifier, kCtrl = Qt::ControlModifier, kShift = Qt::ShiftModifier;
  constexpr auto kNone = Qt::NoModifier, kPad = Qt::KeypadModifier;
  using Case = std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*>;
  for (QWidget* focus : {static_cast<QWidget*>(&Dummy()), static_cast<QWidget*>(&View())}) {
    focus->setFocus();
    for (const auto& [key, modifiers, changes] :
         {Case(Qt::Key_Up, kAlt, "z 4"), Case(Qt::Key_Up, kAlt | kPad, "z 4"),
          Case(Qt::Key_Right, kAlt | kCtrl, "x 1"), Case(Qt::Key_Down, kAlt | kCtrl, "y -1"),
          Case(Qt::Key_Left, kCtrl, "heading 10"), Case(Qt::Key_Left, kShift, "yaw 10"),
          Case(Qt::Key_R, kShift, "heading -10"), Case(Qt::Key_U, kNone, "look 10"),
          Case(Qt::Key_Minus, kNone, "z 6"), Case(Qt::Key_Underscore, kShift, "z 7"),
          Case(Qt::Key_Plus, kPad, "z 4"), Case(Qt::Key_Equal, kNone, "z 4"),
          Case(Qt::Key_Up, kShift | kAlt, ""), Case(Qt::Key_X, kNone, "")}) {
      Restart();
      Key(key, modifiers);
      EXPECT_EQ(Changes(), changes) << QKeySequence(QKeyCombination(modifiers, key)).toString().toStdString();
    }
  }
}

TEST_F(MainWindowInput, AKeyHeldDownRepeatsAndTheArrowShowsWhileShiftIsHeld) {
  Open();
  // As a screen reader's copies come: the modifier key's own bit is inverted.
  for (const Qt::KeyboardModifiers own :
       {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers()}) {
    Restart();
    Send(QEvent::KeyPress, Qt::Key_Shift, own);
    EXPECT_EQ(window->cursor().shape(), Qt::UpArrowCursor);
    for (int i = 0; i < 3; ++i) {
      Send(QEvent::KeyPress, Qt::Key_Left, Qt::ShiftModifier, i > 0);
      Send(QEvent::KeyRelease, Qt::Key_Left, {}, true);
    }
    Send(QEvent::KeyRelease, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(Changes(), "yaw 30");
    EXPECT_EQ(window->cursor().shape(), Qt::UpArrowCursor);
    Send(QEvent::KeyRelease, Qt::Key_Shift, own ^ Qt::ShiftModifier);
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
  }
}

TEST_F(MainWindowInput, AHeldKeyThatAMenuOrAnotherWindowTookDoesNothingHere) {
  Open();
  Key(Qt::Key_Menu);
  Send(QEvent::KeyPress, Qt::Key_Escape);  // closes the menu
  EXPECT_FALSE(Menu().isVisible());
  QWidget other;
  other.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
  QKeyEvent elsewhere(QEvent::KeyPress, Qt::Key_L, {});
  QApplication::sendEvent(other.windowHandle(), &elsewhere);
  for (int i = 0; i < 3; ++i)
    for (const int key : {Qt::Key_Escape, Qt::Key_L, Qt::Key_U}) Send(QEvent::KeyPress, key, {}, true);
  EXPECT_FALSE(status);
  EXPECT_EQ(Changes(), "");
  // X sends a repeat as a release and a press at one time, which Qt does not always report as a repeat.
  XKey(XCB_KEY_RELEASE, 46, 1000);
  XKey(XCB_KEY_PRESS, 46, 1000);
  Send(QEvent::KeyPress, Qt::Key_L, {}, false, 46);
  EXPECT_EQ(Changes(), "");
  XKey(XCB_KEY_RELEASE, 46, 1500);
  XKey(XCB_KEY_PRESS, 46, 1700);
  Send(QEvent::KeyPress, Qt::Key_L, {}, false, 46);
  Send(QEvent::KeyPress, Qt::Key_L, {}, true, 46);
  EXPECT_EQ(Changes(), "heading 20");
}

TEST_F(MainWindowInput, AHeldEscapeThatClosesAListLeavesTheDialogOpen) {
  Open();
  QDialog below;
  QComboBox box(&below);
  box.addItems({"A4", "Letter"});
  QLineEdit line(&below);
  QCompleter completer(box.model());
  line.setCompleter(&completer);
  below.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&below));
  // Of the completer's list the line gets all keys but those that close it.
  for (const bool completes : {false, true}) {
    completes ? completer.complete() : box.showPopup();
    const QPointer<QWidget> list = QApplication::activePopupWidget();
    ASSERT_TRUE(list);
    for (const bool repeats : {false, true, true}) {
      QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {}, {}, repeats);
      QApplication::sendEvent(below.windowHandle(), &escape);
    }
    EXPECT_FALSE(list->isVisible());
    EXPECT_TRUE(below.isVisible());
  }
}

TEST_F(MainWindowInput, KeysOfOtherLayoutsCountByTheirOwnCharacterThenByTheirPlace) {
  Open();
  const struct {
    const char* layout;
    quint32 keycode;
    int key;  ///< as Qt reports it
    bool shift;
    const char* changes;
  } rows[] = {
      {"us", 46, Qt::Key_L, false, "heading 10"}, {"us", 20, Qt::Key_Underscore, true, "z 7"},
      {"de", 35, Qt::Key_Asterisk, true, "z 3"},                                       // Shift and "+"
      {"de", 21, Qt::Key_QuoteLeft, true, ""},    {"fr", 15, Qt::Key_6, true, "z 7"},  // Shift and "-"
      {"ru", 46, 0x0414, false, "heading 10"},    {"ru", 40, 0x0412, true, "look -10"},
      {"ru", 21, Qt::Key_Plus, true, "z 3"},      {"gr", 27, 0x03A1, false, "heading -10"},
      {"gr", 30, 0x0398, false, "look 10"},       {"gr", 31, 0x0399, false, ""},
      {"dvorak", 46, Qt::Key_N, false, ""}};  // it has its L elsewhere
  for (const auto& [layout, keycode, key, shift, changes] : rows) {
    ASSERT_EQ(QProcess::execute("setxkbmap", {layout}), 0);
    Restart();
    Send(QEvent::KeyPress, key, shift ? Qt::ShiftModifier : Qt::NoModifier, false, keycode);
    EXPECT_EQ(Changes(), changes) << layout << " " << keycode;
  }
  QProcess::execute("setxkbmap", {"us"});
}

TEST_F(MainWindowInput, EveryMouseMoveCountsOnce) {
  Open();
  // Drags from the view's middle; the numbers are moves times the step that each makes.
  EXPECT_EQ(Drag(Qt::LeftButton, {}, {-3, 2}, 5), "yaw 5 pitch 95");
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::ShiftModifier, {-3, 2}, 5), "yaw 15 pitch 100");
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::ControlModifier, {-3, -2}, 5), "heading 15 look 10");
  EXPECT_EQ(Drag(Qt::MiddleButton, {}, {-2, -2}, 8), "x -2 y 2");                             // every fourth
  EXPECT_EQ(Drag(Qt::LeftButton, Qt::ControlModifier | Qt::AltModifier, {2, 0}, 18), "x 2");  // every ninth
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
    Key(Qt::Key_Shift);  // in walk mode the arrow stays
    EXPECT_EQ(window->cursor().shape(), on ? Qt::UpArrowCursor : Qt::ArrowCursor);
    EXPECT_EQ(Drag(Qt::LeftButton, {}, {-3, 0}, 4), on ? "yaw 12" : "yaw 4");
  }
  Mouse(QTest::MouseDClick, {90, 90}, Qt::RightButton, Qt::ShiftModifier);
  EXPECT_FALSE(Nav().WalkMode);
}

TEST_F(MainWindowInput, TheWheelMovesOneStepFromEveryWindow) {
  Open();
  Menu().popup(window->mapToGlobal(QPoint(20, 20)));
  ui::HelpWindow help(window.get());
  help.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&help));
  QWidget* const places[] = {&View(), window.get(), &Find<QScrollBar>(*window, "Pitch"), &Menu(), &help};
  for (QWidget* place : places) {
    Restart();
    Wheel(*place, {0, 240});
    EXPECT_EQ(Changes(), "z 4") << place->metaObject()->className();
    Wheel(*place, {0, -120});
    Wheel(*place, {120, 0});
    Wheel(*place, {-120, 0}, Qt::AltModifier);  // Qt swaps the directions while Alt is held
    Wheel(*place, {0, 120}, Qt::AltModifier);
    EXPECT_EQ(Changes(), "z 6") << place->metaObject()->className();
  }
  window->close();
  Wheel(help, {0, 120});
  EXPECT_EQ(Changes(), "z 6");
}

TEST_F(MainWindowInput, ScrollBarsTurnTheModelByLinePageAndDragAndShowItsTurns) {
  Open();
  QScrollBar& yaw = Find<QScrollBar>(*window, "Yaw");
  yaw.triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(Changes(), "yaw 1");
  yaw.triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(Changes(), "yaw 11");
  yaw.setSliderDown(true);
  yaw.setSliderPosition(1000);
  EXPECT_EQ(Changes(), "yaw 180");  // before the release
  yaw.setSliderDown(false);
  Key(Qt::Key_Left);
  EXPECT_EQ(yaw.value(), -179);
  Nav().ScrollPitch.SetValue(1000);
  EXPECT_EQ(Find<QScrollBar>(*window, "Pitch").value(), 270);
}

TEST_F(MainWindowInput, ButtonsAndArrowsStepAndOnlyTheViewAndDummyTakeTheFocus) {
  Open();
  using Case = std::pair<std::string, const char*>;
  for (const auto& [name, changes] :
       {Case("In +", "z 4"), Case("Out -", "z 6"), Case("< < < < <", "heading 10"),
        Case("> > > > >", "heading -10"), Case("U", "look 10"), Case("D", "look -10"),
        Case("Camera left", "x -1"), Case("Camera right", "x 1"), Case("Camera up", "y 1"),
        Case("Camera down", "y -1")}) {
    Restart();
    View().setFocus();
    QTest::mouseClick(&Find<QPushButton>(*window, name.c_str()), Qt::LeftButton);
    EXPECT_EQ(Changes(), changes) << name;
    EXPECT_EQ(Dummy().hasFocus(), name.starts_with("Camera")) << name;
    EXPECT_NE(View().hasFocus(), Dummy().hasFocus()) << name;
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
