/// Where in its file a package has what no drawing gets over.
#pragma once

#include <string>

#include "model/faults.h"
#include "yax/messages.h"

namespace analysis {

/// What a command that draws ends with: the fault, and the line of the record that it names, with what to do
/// there. Reads the package file once more, which is nothing to the drawing that came so far.
yax::Unusable NotDrawn(const std::string& packageFile, const model::Fault& fault);

}  // namespace analysis
