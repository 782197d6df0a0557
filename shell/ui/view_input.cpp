#include "shell/ui/view_input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

#include "shell/main_form.h"
#include "shell/navigation/input_codes.h"
#include "shell/program_end.h"
#include "shell/ui/key_state.h"

namespace shell::ui {

namespace {

int ButtonCode(Qt::MouseButtons buttons) {
  return (buttons & Qt::LeftButton ? navigation::kLeftButton : 0) |
         (buttons & Qt::RightButton ? navigation::kRightButton : 0) |
         (buttons & Qt::MiddleButton ? navigation::kMiddleButton : 0);
}

bool OpensMenu(const QKeyEvent& key) {
  return key.key() == Qt::Key_Menu ||
         (key.key() == Qt::Key_F10 && ShiftState(key.modifiers()) == navigation::kShift);
}

}  // namespace

bool WheelHook::eventFilter(QObject* watched, QEvent* event) {
  // The window passes the event on to its widgets; handle it only once, at the window.
  if (event->type() == QEvent::Wheel && watched->isWindowType()) Turned(*static_cast<QWheelEvent*>(event));
  return false;
}

ViewInput::ViewInput(MainForm& form, ProgramEnd& end, QWidget& view) : form_(form), end_(end), view_(view) {
  view_.installEventFilter(this);
  hWheelHook_.Turned = [this](const QWheelEvent& wheel) { WheelEvent(wheel); };
}

void ViewInput::WatchKeysOf(QWindow* window) {
  keyWindow_ = window;
  keyWindow_->installEventFilter(this);
}

void ViewInput::HookWheel() { qApp->installEventFilter(&hWheelHook_); }

void ViewInput::UnhookWheel() { qApp->removeEventFilter(&hWheelHook_); }

void ViewInput::OpenMenuByKey() {
  const QPointF middle = view_.rect().center();
  navigation::Navigation& navigation = form_.Navigator();
  navigation.Actions.OpenCommandMenu(float(middle.x()), float(middle.y()));
}

bool ViewInput::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (watched == &view_) return MouseEvent(event);
  // An open menu gets the keys.
  if (watched == keyWindow_ && QApplication::activePopupWidget() == nullptr) {
    if (type == QEvent::KeyPress) return KeyEvent(*static_cast<QKeyEvent*>(event), true);
    if (type == QEvent::KeyRelease) return KeyEvent(*static_cast<QKeyEvent*>(event), false);
  }
  return false;
}

bool ViewInput::MouseEvent(QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick && type != QEvent::MouseMove)
    return false;
  const auto& mouse = *static_cast<QMouseEvent*>(event);
  const int shift = ShiftState(mouse.modifiers());
  const auto x = static_cast<float>(mouse.position().x());
  const auto y = static_cast<float>(mouse.position().y());
  navigation::Navigation& navigation = form_.Navigator();
  end_.Run([&] {
    if (type == QEvent::MouseMove) return navigation.Form_MouseMove(ButtonCode(mouse.buttons()), shift, x, y);
    if (type == QEvent::MouseButtonPress)
      return navigation.Form_MouseDown(ButtonCode(mouse.button()), shift, x, y);
    if (mouse.button() == Qt::LeftButton) navigation.Form_DblClick();
  });
  return false;
}

bool ViewInput::KeyEvent(const QKeyEvent& key, bool down) {
  // A held key repeats as release and press; only its last release counts.
  if (!down && key.isAutoRepeat()) return true;
  if (OpensMenu(key)) {
    if (down) OpenMenuByKey();
    return true;
  }
  const int code = KeyCode(key);
  const int shift = ShiftState(key);
  navigation::Navigation& navigation = form_.Navigator();
  end_.Run([&] { down ? navigation.Form_KeyDown(code, shift) : navigation.Form_KeyUp(code, shift); });
  return navigation::Navigation::AnswersTo(code);
}

void ViewInput::WheelEvent(const QWheelEvent& wheel) {
  // While Alt is held, Qt swaps the horizontal and vertical direction of the wheel.
  const QPoint turn = wheel.angleDelta();
  const int delta = wheel.modifiers().testFlag(Qt::AltModifier) ? turn.x() : turn.y();
  if (delta != 0) end_.Run([&] { form_.Navigator().WheelMoved(delta); });
}

}  // namespace shell::ui
