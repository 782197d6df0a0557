/// Which wires belong to one net.
#pragma once

#include <optional>
#include <regex>
#include <string>

namespace analysis {

struct NetRule {
  std::optional<std::regex> Pattern;  ///< with at least one group
};

/// The net of a wire or pad: the text of the pattern's first group in its name, else the whole name. A name
/// longer than kMostForRegex, as no real one is, never matches.
std::string NetOf(const NetRule& rule, const std::string& name);

}  // namespace analysis
