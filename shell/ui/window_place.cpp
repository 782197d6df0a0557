#include "shell/ui/window_place.h"

#include <algorithm>

namespace shell::ui {

QPoint PlaceBeside(const QSize& size, std::span<const QRect> taken, const QRect& screen) {
  const auto free = [&](const QPoint& corner) {
    const QRect place(corner, size);
    return screen.contains(place) && std::none_of(taken.begin(), taken.end(), [&](const QRect& other) {
             return other.intersects(place);
           });
  };
  for (const QRect& other : taken) {
    // Move up when the screen would cut off the lower edge.
    const int top = std::max(screen.top(), std::min(other.top(), screen.bottom() + 1 - size.height()));
    for (const QPoint corner : {QPoint(other.right() + 1, top), QPoint(other.left() - size.width(), top)})
      if (free(corner)) return corner;
  }
  const QPoint corner = screen.bottomRight() + QPoint(1, 1) - QPoint(size.width(), size.height());
  return {std::max(corner.x(), screen.left()), std::max(corner.y(), screen.top())};
}

}  // namespace shell::ui
