/// The eight orientations of a pin or a cell in LEF and DEF.
#pragma once

#include <optional>
#include <string_view>

#include "import/box.h"

namespace importer {

/// Names as in DEF. The flipped ones mirror x first (FN) and then turn.
enum class Orientation { N, S, E, W, FN, FS, FE, FW };

std::optional<Orientation> OrientationOf(std::string_view word);

/// A point of a pin, relative to the place where the pin lies.
glm::dvec2 Oriented(const glm::dvec2& point, Orientation orientation);
Box Oriented(const Box& box, Orientation orientation);

/// A box within a cell of this size, relative to the lower left corner of the cell as it lies.
Box OrientedInCell(const Box& box, const glm::dvec2& cellSize, Orientation orientation);

}  // namespace importer
