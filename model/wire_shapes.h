/// Loops that single wires have of their own, in place of the settings'.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

namespace model {

/// In file units, like the settings; what is not given stays theirs.
struct LoopShape {
  std::optional<float> Height, Extension;
};

/// By the wire's text in the wire list ("A", or "A:B" for a stitch).
using WireShapes = std::unordered_map<std::string, LoopShape>;

}  // namespace model
