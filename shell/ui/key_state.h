/// Qt's key events as the numbers that the handlers take.
#pragma once

#include <QEvent>
#include <Qt>

class QKeyEvent;

namespace shell::ui {

/// Shift 1, Ctrl 2, Alt 4, or a sum; no other modifier counts.
int ShiftState(Qt::KeyboardModifiers modifiers);

/// The same as it stands after this key, which may itself be one of the three.
int ShiftState(const QKeyEvent& key);

/// The handlers' code of a key, 0 for those that they do not know. The character decides; where that is none
/// of theirs, the key's own character without modifiers does.
int KeyCode(const QKeyEvent& key);

}  // namespace shell::ui
