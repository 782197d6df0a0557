/// What a plan carries besides the package: axes, edge letters, the die's corner, the scale bar.
#pragma once

#include "model/package.h"
#include "sheet/bonding_diagram.h"
#include "sheet/labels.h"
#include "sheet/pencil.h"

namespace sheet {

/// Whether the base die is large enough on paper to carry marks.
bool HasDieMarks(const DiagramInputs& inputs, double scale);

/// The base die's lower left corner as a black triangle, axes at its origin, and its edges' letters. Letters
/// that would cover what `page` holds already stand beside the die, or are left out.
void DrawDieMarks(const DiagramInputs& inputs, const Page& page, Pencil& pencil);

/// The triangle that points at a lead from outside, smaller where there is little room.
void DrawLeadMark(const Label& label, const Page& page, Pencil& pencil);

/// A line of a round length with its label above, from the lower left corner of `room` to the right.
void DrawScaleBar(const DiagramInputs& inputs, const Box& room, Pencil& pencil);

}  // namespace sheet
