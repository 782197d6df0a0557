/// Which wires belong to one net.
#pragma once

#include <cstddef>
#include <optional>
#include <regex>
#include <string>

namespace analysis {

/// std::regex recurses for every letter of a pattern and of a name. Longer patterns are refused and longer
/// names never match; no real name is that long.
inline constexpr std::size_t kLongestNetName = 1000;

struct NetRule {
  std::optional<std::regex> Pattern;  ///< with at least one group
};

/// The net of a wire or pad: the text of the pattern's first group in its name, else the whole name.
std::string NetOf(const NetRule& rule, const std::string& name);

}  // namespace analysis
