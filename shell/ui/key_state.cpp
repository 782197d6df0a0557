#include "shell/ui/key_state.h"

#include <QKeyEvent>

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

}  // namespace

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) + (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

int ShiftState(const QKeyEvent& key) {
  // While a screen reader listens, keys come as copies in which a modifier key's own bit is inverted, so
  // that bit follows from the press or release.
  Qt::KeyboardModifiers modifiers = key.modifiers();
  modifiers.setFlag(ModifierOf(key.key()), key.type() == QEvent::KeyPress);
  return ShiftState(modifiers);
}

}  // namespace shell::ui
