/// Geometry seen from above: boxes, and turns by right angles.
#pragma once

#include <glm/vec2.hpp>

namespace importer {

/// A rectangle along the axes.
struct Box {
  glm::dvec2 Low{0.0}, High{0.0};

  glm::dvec2 Size() const { return High - Low; }
  glm::dvec2 Middle() const { return (Low + High) / 2.0; }
  double Area() const { return Size().x * Size().y; }
};

/// The box with these opposite corners, in any order.
Box BoxOf(const glm::dvec2& a, const glm::dvec2& b);
/// The smallest box around both.
Box Around(const Box& a, const Box& b);
/// True when the insides have a point in common.
bool Overlap(const Box& a, const Box& b);
/// True when `inner` lies within `outer`.
bool Contains(const Box& outer, const Box& inner);

/// Turns a point counter-clockwise about the origin.
glm::dvec2 Turned(const glm::dvec2& point, double degrees);

/// The angle of an undirected line: any angle as 0 to below 180 degrees.
double LineDegrees(double degrees);

}  // namespace importer
