/// Finds what ends the viewer while it draws a package, and what it draws nothing for.
#pragma once

#include "analysis/diagnostics.h"
#include "analysis/line_check.h"
#include "model/package.h"

namespace analysis {

/// Adds what keeps the package, with the settings after a load, from being drawn as a whole, and the pads
/// that are not connected.
void CheckDrawing(const model::Package& package, const LineCheck& lines, Diagnostics& found);

}  // namespace analysis
