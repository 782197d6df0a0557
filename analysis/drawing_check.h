/// Finds what ends the viewer while it draws a package, and what it does not draw.
#pragma once

#include "analysis/diagnostics.h"
#include "analysis/line_check.h"
#include "model/package.h"

namespace analysis {

/// Adds everything that keeps the package from being drawn completely with the settings after a load, and the
/// pads that are not connected.
void CheckDrawing(const model::Package& package, const LineCheck& lines, Diagnostics& found);

}  // namespace analysis
