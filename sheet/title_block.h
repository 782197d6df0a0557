/// The frame of a sheet and the title block in its corner.
#pragma once

#include <cstddef>
#include <string>

#include "sheet/diagram_inputs.h"
#include "sheet/pencil.h"

namespace sheet {

/// The number of a sheet and of all sheets.
struct SheetNumber {
  std::size_t This = 1, Of = 1;
};

/// The frame of a page: 10 mm inside the edges.
Box FrameOf(const Paper& paper);

/// The height of the block that DrawTitleBlock draws.
double TitleBlockHeight();

/// Draws the block into the lower right corner of `frame`, `width` wide.
void DrawTitleBlock(const DiagramInputs& inputs, const Drawing& drawing, const SheetNumber& sheet,
                    const Box& frame, double width, Pencil& pencil);

/// The area that DrawStrip leaves free inside a frame.
Box RoomOverStrip(const Box& frame);

/// Draws the frame and, along its lower edge, the one line that further sheets have.
/// Returns  the free area inside
Box DrawStrip(const DiagramInputs& inputs, const SheetNumber& sheet, const Box& frame, Pencil& pencil);

/// The text; cut and with "..." at its end when it is wider than `width`.
std::string Fitted(const std::string& words, double size, double width, bool bold = false);

}  // namespace sheet
