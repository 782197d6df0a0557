/// All checks of a package file.
#pragma once

#include "analysis/diagnostics.h"
#include "analysis/line_check.h"
#include "model/package.h"

namespace analysis {

/// The diagnostics of the lines, the drawing and the wire list, in the order of the package's lines.
/// Needs   `lines` has observed the read of this package; its diagnostics are moved out
Diagnostics CheckPackage(const model::Package& package, LineCheck& lines);

}  // namespace analysis
