/// Marks on a plan: axes, edge letters, the die's corner, the scale bar.
#pragma once

#include "model/package.h"
#include "sheet/diagram_inputs.h"
#include "sheet/labels.h"
#include "sheet/pencil.h"

namespace sheet {

/// Whether the base die is large enough on paper for marks.
bool HasDieMarks(const DiagramInputs& inputs, double scale);

/// Draws the base die's lower left corner as a black triangle, axes at its origin, and its edges' letters.
/// Moves letters that would cover something on `page` beside the die, or omits them.
void DrawDieMarks(const DiagramInputs& inputs, const Page& page, Pencil& pencil);

/// Draws the triangle that points at a lead from outside; makes it smaller when there is little room.
void DrawLeadMark(const Label& label, const Page& page, Pencil& pencil);

/// Draws a line of a round length with its label above, from the lower left corner of `room` to the right.
void DrawScaleBar(const DiagramInputs& inputs, const Box& room, Pencil& pencil);

}  // namespace sheet
