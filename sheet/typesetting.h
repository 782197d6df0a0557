/// The routines of the typesetting module, which alone links Pango and cairo: their libraries take longer to
/// load than most commands run, so a program loads the module when it measures its first text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sheet/drawing.h"

namespace sheet {

/// The routines of these names in drawing.h.
struct Typesetting {
  double (*TextWidth)(std::string_view words, double size, bool bold);
  std::vector<std::string> (*TextsWithoutGlyphs)(const Drawing& drawing);
  std::string (*PdfOf)(const Drawing& drawing);
};

/// The module's only entry point: `const Typesetting* SheetTypesetting()`.
inline constexpr char kTypesettingEntry[] = "SheetTypesetting";

}  // namespace sheet
