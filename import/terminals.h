/// Finds bond pads among the shapes of pins and cells.
#pragma once

#include <cstddef>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "import/die.h"

namespace importer {

/// A rectangle of a pin on one layer. Lengths in millimetres, places from the die's middle.
struct PinShape {
  std::string Layer;
  Box Place;
};

/// A pin of the chip, or one that comes with a cell.
struct Terminal {
  std::string Name;        ///< name of the pin, or of the cell's instance
  std::string Macro = {};  ///< the cell's kind; empty for a pin of the chip
  NetType Type = NetType::Unknown;
  std::vector<PinShape> Shapes = {};

  bool IsCell() const { return !Macro.empty(); }
};

/// The bond pads: the shapes that keep the rule, on the one layer that has most of them. A pin on a cell's
/// pad gives it its name and type; other pads of cells have the instance's name. Shapes of one pin that
/// overlap are one pad.
std::vector<DiePad> PadsOf(const std::vector<Terminal>& terminals, const PadRule& rule);

/// True when the pattern matches within the first kMostForRegex letters of the name.
bool Matches(const std::string& name, const std::regex& pattern);

/// The number of shapes of all terminals.
std::size_t ShapeCount(const std::vector<Terminal>& terminals);

/// POWER, GROUND and SIGNAL in any case; anything else is unknown.
NetType NetTypeOf(std::string_view word);

}  // namespace importer
