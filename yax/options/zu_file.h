/// Reading an estimator parameter file (".zu") by the keys with which it is written.
#pragma once

#include <string>
#include <string_view>

#include "yax/options/loops.h"

namespace yax {

/// The settings that the file gives; it may leave some out. Keys in any letter case. Its ninth key, the
/// package's name, is known and changes nothing: the command line names the package.
/// Deliberate: the window's own load knows two keys by other texts than it writes and so drops the base and
/// the stitch extension; here they count.
/// Faults  Unusable when the file cannot be read, or a value is none
LoopValues ReadParameterFile(const std::string& path);

/// The same from the text; `name` stands in messages. A line without a known key is reported and ignored.
LoopValues ReadParameterText(const std::string& name, std::string_view text);

}  // namespace yax
