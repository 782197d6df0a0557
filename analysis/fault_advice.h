/// Advice on a record that cannot be drawn.
#pragma once

#include <string>

#include "analysis/record_lines.h"
#include "model/faults.h"
#include "model/input_error.h"

namespace analysis {

std::string AdviceOn(const model::Fault& fault);

/// The error of a command that draws, with the line of the record that made the drawing fail.
model::InputError NotDrawn(const std::string& packageFile, const model::Fault& fault,
                           const RecordLines& lines);

}  // namespace analysis
