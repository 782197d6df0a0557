/// Turns Qt's key events into the key codes and modifier states of the handlers.
#pragma once

#include <QEvent>
#include <Qt>

class QKeyEvent;

namespace shell::ui {

/// Shift 1, Ctrl 2, Alt 4, or a sum; ignores other modifiers.
int ShiftState(Qt::KeyboardModifiers modifiers);

/// The modifier state after this key event, which may itself be one of the three.
int ShiftState(const QKeyEvent& key);

/// The handlers' code of a key, 0 for other keys. Uses the typed character; if no handler knows that, uses
/// the key's character without modifiers.
int KeyCode(const QKeyEvent& key);

}  // namespace shell::ui
