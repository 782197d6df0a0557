/// What the viewer's wire list makes of a package: tiers with which it ends the viewer.
#pragma once

#include "analysis/line_check.h"
#include "formats/check_report.h"
#include "model/package.h"

namespace analysis {

/// Adds each such tier once, with the first line that has it.
void CheckWireList(const model::Package& package, const PackageLines& lines, formats::CheckReport& report);

}  // namespace analysis
