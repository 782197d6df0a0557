/// Reads a DEF file: the die's area, pins and placed cells.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/lef_reader.h"
#include "import/terminals.h"

namespace importer {

/// A chip. Lengths in the file's own units.
struct DefChip {
  double UnitsPerMicron = 0.0;
  std::optional<Box> Area;
  std::vector<Terminal> Terminals;  ///< pins, then the pins of placed cells whose macro the library has
  std::size_t Pins = 0;             ///< all pins of the file
  std::size_t Cells = 0, CellsInLibrary = 0;
};

/// Reads   UNITS, DIEAREA, PINS and COMPONENTS; skips all other sections
/// Faults  InputError with the line when a number cannot be read, an orientation is unknown, or the text
///         ends before "END DESIGN"
DefChip ReadDef(std::string_view text, const std::string& file, const LefLibrary& library);

}  // namespace importer
