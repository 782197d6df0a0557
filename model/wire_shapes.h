/// Loops of single wires, which override the settings.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

namespace model {

/// Units   file units; an empty value keeps the setting's
struct LoopShape {
  std::optional<float> Height, Extension;
};

/// By the wire's text in the wire list ("A", or "A:B" for a stitch).
using WireShapes = std::unordered_map<std::string, LoopShape>;

}  // namespace model
