/// Reads an estimator parameter file (".zu") with the keys as the setup window writes them.
#pragma once

#include <string>
#include <string_view>

#include "yax/options/loops.h"

namespace yax {

/// The settings in the text of a file, which may omit some. Keys may have any letter case. Ignores the ninth
/// key, the package's name: the command line names the package. Deliberate: unlike the window's load, which
/// spells two keys differently from its save, this reads the base and the stitch extension. Messages use
/// `name`. Reports and ignores a line without a known key. Faults  Unusable when a value is not valid
LoopValues ReadParameterText(const std::string& name, std::string_view text);

}  // namespace yax
