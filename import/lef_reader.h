/// The macros of a LEF file: their pins' rectangles.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "import/terminals.h"

namespace importer {

/// One cell. Lengths in micrometres, places from the lower left corner of the cell.
struct LefMacro {
  std::string Name;
  std::size_t Line = 0;
  glm::dvec2 Size{0.0};
  std::vector<Terminal> Pins = {};
};

using LefLibrary = std::map<std::string, LefMacro, std::less<>>;

/// Adds the macros of a LEF text. The last of several macros with one name counts, as in the programs that
/// read these files.
/// Reads   MACRO with ORIGIN, SIZE, PIN, USE, PORT, LAYER, RECT and POLYGON; skips everything else
/// Faults  InputError with the line when a number cannot be read, or the text ends within a macro
void ReadLef(std::string_view text, const std::string& file, LefLibrary& library);

}  // namespace importer
