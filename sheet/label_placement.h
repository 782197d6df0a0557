/// Places labels around a plan without overlaps.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <vector>

namespace sheet {

enum class Edge { Left, Right, Top, Bottom };

/// A label's wish: its leader begins at the anchor and should continue in the direction `Towards`.
struct LabelWish {
  glm::dvec2 Anchor{}, Towards{};
};

/// The box around which labels are placed: horizontal ones left and right, upright ones above and below. A
/// label takes `Pitch` along its edge.
struct LabelRoom {
  glm::dvec2 Low{}, High{};
  double Pitch = 3.0;

  std::size_t Capacity() const;
};

struct LabelPlace {
  std::size_t Wish = 0;  ///< index of its wish
  Edge At = Edge::Left;
  double Along = 0.0;  ///< y of the label's middle at the left and right edge, x at the others
};

/// Gives each wish a place; when the room does not suffice, only an evenly spread part of the wishes. Orders
/// the labels of an edge so that their leaders cross as little as possible.
/// Returns  edge by edge, along each from low to high
std::vector<LabelPlace> PlaceLabels(const std::vector<LabelWish>& wishes, const LabelRoom& room);

/// The point where the leader of a label meets the box.
glm::dvec2 KneeOf(const LabelPlace& place, const LabelRoom& room);

}  // namespace sheet
