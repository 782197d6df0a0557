/// The column of text beside the plan: measured data, legend, findings, notes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "sheet/bonding_diagram.h"
#include "sheet/pencil.h"

namespace sheet {

/// A small picture before a line of the legend.
enum class Sign { None, Lead1, DieCorner, Wire, Offender, OtherWire };

struct SideLine {
  bool Heading = false;
  Sign Before = Sign::None;
  Ink Colour = kBlack;  ///< of the sign
  Dash Pattern = Dash::Solid;
  std::string Words = {};  ///< a heading, a label of the measured data, a line
  std::string Value = {};  ///< stands in a second column when there is one
};

/// Label and value beside each other, both in lines no wider than their columns.
void AddFact(const Fact& fact, double width, std::vector<SideLine>& lines);

/// The text under `heading` as lines no wider than `width`; nothing for no text.
void AddParagraphs(const char* heading, const std::vector<std::string>& texts, double width,
                   std::vector<SideLine>& lines);

/// Writes lines from the top of `box` down, from number `first` on.
/// Returns  the number of the first line that found no room
std::size_t DrawSideText(const std::vector<SideLine>& lines, std::size_t first, const Box& box,
                         Pencil& pencil);

}  // namespace sheet
