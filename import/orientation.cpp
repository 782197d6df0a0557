#include "import/orientation.h"

#include "model/text.h"

namespace importer {

std::optional<Orientation> OrientationOf(std::string_view word) {
  static constexpr std::string_view kNames[] = {"N", "S", "E", "W", "FN", "FS", "FE", "FW"};
  for (std::size_t i = 0; i < std::size(kNames); ++i)
    if (model::EqualsUpper(word, kNames[i])) return static_cast<Orientation>(i);
  return std::nullopt;
}

glm::dvec2 Oriented(const glm::dvec2& point, Orientation orientation) {
  const double x = point.x;
  const double y = point.y;
  switch (orientation) {
    case Orientation::N:
      return {x, y};
    case Orientation::S:
      return {-x, -y};
    case Orientation::E:
      return {y, -x};
    case Orientation::W:
      return {-y, x};
    case Orientation::FN:
      return {-x, y};
    case Orientation::FS:
      return {x, -y};
    case Orientation::FE:
      return {-y, -x};
    case Orientation::FW:
      return {y, x};
  }
  return point;
}

Box Oriented(const Box& box, Orientation orientation) {
  return BoxOf(Oriented(box.Low, orientation), Oriented(box.High, orientation));
}

Box OrientedInCell(const Box& box, const glm::dvec2& cellSize, Orientation orientation) {
  const Box turned = Oriented(box, orientation);
  // DEF places the lower left corner of the cell as it is oriented.
  const glm::dvec2 corner = Oriented(Box{glm::dvec2(0.0), cellSize}, orientation).Low;
  return {turned.Low - corner, turned.High - corner};
}

}  // namespace importer
