/// Everything that a check reports of a package file.
#pragma once

#include "analysis/diagnostics.h"
#include "analysis/line_check.h"
#include "model/package.h"

namespace analysis {

/// What the lines, the drawing and the wire list make of a package, in the order of its lines.
/// Needs   `lines` to have watched the read of this package; what it found is moved out of it
Diagnostics CheckPackage(const model::Package& package, LineCheck& lines);

}  // namespace analysis
