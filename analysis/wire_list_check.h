/// What the viewer's wire list makes of a package: tiers with which it ends the viewer.
#pragma once

#include "model/package.h"
#include "formats/check_report.h"
#include "analysis/line_check.h"

namespace yax {

/// Adds each such tier once, with the first line that has it.
void CheckWireList(const model::Package& package, const PackageLines& lines, CheckReport& report);

}  // namespace yax
