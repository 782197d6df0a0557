/// Which wires belong to one net.
#pragma once

#include <optional>
#include <regex>
#include <string>

namespace CLI {
class App;
}

namespace yax {

struct NetOptions {
  std::optional<std::regex> Pattern;
};

/// Adds --net-pattern.
void AddNetOptions(CLI::App& command, NetOptions& options);

/// The net of a wire or pad: what the first group of the pattern matches in its name, else the whole name.
std::string NetOf(const NetOptions& options, const std::string& name);

}  // namespace yax
