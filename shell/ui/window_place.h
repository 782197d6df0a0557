/// Finds a place for a window that does not cover other windows.
#pragma once

#include <QPoint>
#include <QRect>
#include <span>

namespace shell::ui {

/// The top left corner for a window of this size: right of the first taken place, else left of it, else right
/// of the next one, and so on. When no place is free: the screen's lower right corner, or its upper left
/// corner when the window is larger than the screen.
/// Needs  at least one taken place
QPoint PlaceBeside(const QSize& size, std::span<const QRect> taken, const QRect& screen);

}  // namespace shell::ui
