/// The frame of a sheet and the block in its corner that says what it is.
#pragma once

#include <cstddef>
#include <string>

#include "sheet/bonding_diagram.h"
#include "sheet/pencil.h"

namespace sheet {

/// Which sheet of how many.
struct SheetNumber {
  std::size_t This = 1, Of = 1;
};

/// The frame of a page: 10 mm inside the edges.
Box FrameOf(const Paper& paper);

/// How high the block is that DrawTitleBlock draws.
double TitleBlockHeight();

/// Draws the block into the lower right corner of `frame`, `width` wide.
void DrawTitleBlock(const DiagramInputs& inputs, const Drawing& drawing, const SheetNumber& sheet,
                    const Box& frame, double width, Pencil& pencil);

/// What DrawStrip leaves inside a frame.
Box RoomOverStrip(const Box& frame);

/// Draws the frame and, along its lower edge, the one line that further sheets have.
/// Returns  what is left inside
Box DrawStrip(const DiagramInputs& inputs, const SheetNumber& sheet, const Box& frame, Pencil& pencil);

/// The text, cut and ended by "..." where it is wider than `width`.
std::string Fitted(const std::string& words, double size, double width, bool bold = false);

}  // namespace sheet
