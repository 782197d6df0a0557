/// Where a window opens without covering other windows.
#pragma once

#include <QPoint>
#include <QRect>
#include <span>

namespace shell::ui {

/// The top left corner for a window of this size: right of the first taken place, else left of it, else right
/// of the next one. Where no place is free the window goes to the screen's lower right corner, or to its
/// upper left one when it is larger than the screen. Needs  at least one taken place
QPoint PlaceBeside(const QSize& size, std::span<const QRect> taken, const QRect& screen);

}  // namespace shell::ui
