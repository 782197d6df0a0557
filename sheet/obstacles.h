/// The shapes already on a page, which marks and letters must not cover.
#pragma once

#include <glm/vec2.hpp>
#include <vector>

#include "sheet/pencil.h"

namespace sheet {

/// The outlines of dies, pads and rings, wires, leaders and marks of a page. Omits bands under a die, because
/// the die covers them.
class Obstacles {
 public:
  /// Ignores shapes outside `within`.
  Obstacles(const Drawing& drawing, const Page& page, const Box& within);

  /// Two points are a line, more of them the corners of a convex area. A box inside of a filled area meets
  /// it.
  void AddOutline(std::vector<glm::dvec2> outline, bool filled = true);
  void AddBox(const Box& box);

  /// Leaders are so thin that a letter can be read over them.
  bool Meet(const Box& box, bool leadersCount = true) const;

 private:
  struct Outline {
    Box Bounds;
    std::vector<glm::dvec2> Points;
    bool Filled;
    bool Leader;
  };
  void Add(Outline outline);

  Box within_;
  std::vector<Outline> outlines_;
};

}  // namespace sheet
