/// The column of text beside the plan: measured data, legend, findings, notes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "sheet/diagram_inputs.h"
#include "sheet/pencil.h"

namespace sheet {

/// A small symbol before a line of the legend.
enum class Sign { None, Lead1, DieCorner, Wire, Offender, OtherWire };

struct SideLine {
  bool Heading = false;
  Sign Before = Sign::None;
  Ink Colour = kBlack;  ///< of the sign
  Dash Pattern = Dash::Solid;
  std::string Words = {};  ///< a heading, a label of the measured data, a line
  std::string Value = {};  ///< goes into a second column when not empty
};

/// Label and value side by side, both wrapped to their columns.
void AddFact(const Fact& fact, double width, std::vector<SideLine>& lines);

/// The text under `heading` as lines no wider than `width`; empty for an empty text.
void AddParagraphs(const char* heading, const std::vector<std::string>& texts, double width,
                   std::vector<SideLine>& lines);

/// Writes lines downwards from the top of `box`, beginning with number `first`.
/// Returns  the number of the first line that does not fit
std::size_t DrawSideText(const std::vector<SideLine>& lines, std::size_t first, const Box& box,
                         Pencil& pencil);

}  // namespace sheet
