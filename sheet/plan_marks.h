/// What a plan carries besides the package: axes, edge letters, the die's corner, the scale bar.
#pragma once

#include "model/package.h"
#include "sheet/bonding_diagram.h"
#include "sheet/pencil.h"

namespace sheet {

/// Whether the base die is large enough on paper to carry marks.
bool HasDieMarks(const DiagramInputs& inputs, double scale);

/// The base die's lower left corner as a black triangle, its edges' letters, and axes at its origin.
void DrawDieMarks(const DiagramInputs& inputs, Pencil& pencil);

/// A line of a round length with its label above, from `start` to the right.
void DrawScaleBar(const DiagramInputs& inputs, const glm::dvec2& start, Pencil& pencil);

}  // namespace sheet
