/// Drawings as PDF files.
#pragma once

#include <string>

#include "sheet/drawing.h"

namespace sheet::pango {

/// See sheet::PdfOf.
std::string PdfOf(const Drawing& drawing);

}  // namespace sheet::pango
