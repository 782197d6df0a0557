/// Where labels stand around a plan so that none overlaps another.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <vector>

namespace sheet {

enum class Edge { Left, Right, Top, Bottom };

/// What a label is for: its leader begins at the anchor and best goes on in `Towards`.
struct LabelWish {
  glm::dvec2 Anchor{}, Towards{};
};

/// The box outside of which the labels stand: rows beside its left and right edges, upright ones above and
/// below it. A label takes `Pitch` along its edge.
struct LabelRoom {
  glm::dvec2 Low{}, High{};
  double Pitch = 3.0;

  std::size_t Capacity() const;
};

struct LabelPlace {
  std::size_t Wish = 0;  ///< index of what it is for
  Edge At = Edge::Left;
  double Along = 0.0;  ///< y of the label's middle at the left and right edge, x at the others
};

/// A place for every wish, or for evenly spread ones where there is no room for all. Leaders of one edge do
/// not cross where the order of the labels can prevent it.
/// Returns  edge by edge, along each from low to high
std::vector<LabelPlace> PlaceLabels(const std::vector<LabelWish>& wishes, const LabelRoom& room);

/// Where the leader of a label meets the box.
glm::dvec2 KneeOf(const LabelPlace& place, const LabelRoom& room);

}  // namespace sheet
