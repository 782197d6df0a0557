/// A box of green grid lines around the scene.
#pragma once

#include <cstdint>

namespace render::gl {

/// Deliberate: callable, but the viewer does not show it.
class Grid {
 public:
  /// Compiles one square of 100 x 100 units, with lines 5 units apart, at y = 0 around the origin.
  /// Needs   current context
  /// Faults  Overflow when the list's name does not fit 16 bits
  void BuildGrid();

  /// Draws the square as the floor and the four walls of a box open at the top; nothing before BuildGrid.
  void DisplayGrid() const;

 private:
  std::int16_t number_ = 0;
};

}  // namespace render::gl
