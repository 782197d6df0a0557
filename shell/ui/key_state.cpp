#include "shell/ui/key_state.h"

#include <QKeyEvent>

#include "shell/navigation/input_codes.h"
#include "shell/ui/keyboard_layout.h"

namespace shell::ui {

namespace {

Qt::KeyboardModifier ModifierOf(int key) {
  switch (key) {
    case Qt::Key_Shift:
      return Qt::ShiftModifier;
    case Qt::Key_Control:
      return Qt::ControlModifier;
    case Qt::Key_Alt:
      return Qt::AltModifier;
    default:
      return Qt::NoModifier;
  }
}

int CodeOf(int key, bool keypad) {
  switch (key) {
    case Qt::Key_Escape:
      return navigation::kEscape;
    case Qt::Key_Home:
      return navigation::kHome;
    case Qt::Key_Left:
      return navigation::kLeft;
    case Qt::Key_Up:
      return navigation::kUp;
    case Qt::Key_Right:
      return navigation::kRight;
    case Qt::Key_Down:
      return navigation::kDown;
    case Qt::Key_D:
      return navigation::kD;
    case Qt::Key_L:
      return navigation::kL;
    case Qt::Key_R:
      return navigation::kR;
    case Qt::Key_U:
      return navigation::kU;
    case Qt::Key_Plus:
      return keypad ? navigation::kKeypadPlus : navigation::kEqualsPlus;
    case Qt::Key_Equal:
      return navigation::kEqualsPlus;
    case Qt::Key_Minus:
      return keypad ? navigation::kKeypadMinus : navigation::kMinus;
    case Qt::Key_Underscore:
      return navigation::kMinus;
    default:
      return 0;
  }
}

}  // namespace

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) + (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

int ShiftState(const QKeyEvent& key) {
  // With a screen reader, key events arrive as copies in which a modifier key's own bit is inverted, so
  // that bit follows from the press or release.
  Qt::KeyboardModifiers modifiers = key.modifiers();
  modifiers.setFlag(ModifierOf(key.key()), key.type() == QEvent::KeyPress);
  return ShiftState(modifiers);
}

int KeyCode(const QKeyEvent& key) {
  const int code = CodeOf(key.key(), key.modifiers().testFlag(Qt::KeypadModifier));
  if (code != 0 || key.nativeScanCode() == 0 || ModifierOf(key.key()) != Qt::NoModifier) return code;
  const char character = UnshiftedCharacter(key.nativeScanCode(), key.nativeModifiers());
  // Qt's key codes of letters are the capitals.
  return CodeOf(QChar(character).toUpper().unicode(), false);
}

}  // namespace shell::ui
