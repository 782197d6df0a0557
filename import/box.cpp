#include "import/box.h"

#include <cmath>
#include <glm/common.hpp>
#include <glm/trigonometric.hpp>

namespace importer {

Box BoxOf(const glm::dvec2& a, const glm::dvec2& b) { return {glm::min(a, b), glm::max(a, b)}; }

Box Around(const Box& a, const Box& b) { return {glm::min(a.Low, b.Low), glm::max(a.High, b.High)}; }

bool Overlap(const Box& a, const Box& b) {
  return a.Low.x < b.High.x && b.Low.x < a.High.x && a.Low.y < b.High.y && b.Low.y < a.High.y;
}

bool Contains(const Box& outer, const Box& inner) {
  return outer.Low.x <= inner.Low.x && outer.Low.y <= inner.Low.y && inner.High.x <= outer.High.x &&
         inner.High.y <= outer.High.y;
}

glm::dvec2 Turned(const glm::dvec2& point, double degrees) {
  const double quarters = degrees / 90.0;
  // Exact for right angles, so that points on a line stay on it.
  if (quarters == std::floor(quarters)) {
    switch (static_cast<int>(quarters - 4.0 * std::floor(quarters / 4.0))) {
      case 1:
        return {-point.y, point.x};
      case 2:
        return -point;
      case 3:
        return {point.y, -point.x};
      default:
        return point;
    }
  }
  const double radians = glm::radians(degrees);
  return {point.x * std::cos(radians) - point.y * std::sin(radians),
          point.x * std::sin(radians) + point.y * std::cos(radians)};
}

double LineDegrees(double degrees) { return degrees - 180.0 * std::floor(degrees / 180.0); }

}  // namespace importer
