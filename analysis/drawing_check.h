/// What the viewer's drawing makes of a package that was read: what ends it and what shows nothing.
#pragma once

#include "analysis/line_check.h"
#include "formats/check_report.h"
#include "model/package.h"

namespace analysis {

/// Adds to the report what keeps the package, with the settings after a load, from being drawn as a whole,
/// and the pads that are not connected.
void CheckDrawing(const model::Package& package, const PackageLines& lines, formats::CheckReport& report);

}  // namespace analysis
