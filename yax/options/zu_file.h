/// Reads an estimator parameter file (".zu") with the keys as the setup window writes them.
#pragma once

#include <string>
#include <string_view>

#include "yax/options/loops.h"

namespace yax {

/// The settings in a file's text, which may omit some. Keys may have any letter case. Ignores the ninth key,
/// the package's name: the command line names the package. Reports and ignores a line without a known key.
/// Messages name the file `name`.
/// Deliberate: unlike the window's load, which spells two keys differently from its save, this reads the base
/// and the stitch extension.
/// Faults  Unusable when a value is not valid
LoopValues ReadParameterText(const std::string& name, std::string_view text);

}  // namespace yax
