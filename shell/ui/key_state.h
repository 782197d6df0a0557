/// The modifier state of the toolkit's key events.
#pragma once

#include <QEvent>
#include <Qt>

class QKeyEvent;

namespace shell::ui {

/// Shift 1, Ctrl 2, Alt 4, or a sum; no other modifier counts.
int ShiftState(Qt::KeyboardModifiers modifiers);

/// The same as it stands after this key, which may itself be one of the three.
int ShiftState(const QKeyEvent& key);

}  // namespace shell::ui
