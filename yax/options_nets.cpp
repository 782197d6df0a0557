#include "yax/options_nets.h"

#include <CLI/CLI.hpp>
#include <cstddef>

#include "yax/messages.h"

namespace yax {

namespace {

std::regex PatternOf(const std::string& text) {
  try {
    const std::regex pattern(text);
    if (pattern.mark_count() > 0) return pattern;
  } catch (const std::regex_error&) {
    throw Unusable(CommandLine(), "--net-pattern '" + text + "' is no regular expression",
                   "give one such as '^(V..)_'");
  }
  throw Unusable(CommandLine(), "--net-pattern '" + text + "' has no group",
                 "put the net's part of a name in round brackets, such as '^(V..)_'");
}

}  // namespace

void AddNetOptions(CLI::App& command, NetOptions& options) {
  command
      .add_option_function<std::string>(
          "--net-pattern", [&options](const std::string& text) { options.Pattern = PatternOf(text); },
          "Names that it matches belong to the net in its first group; any other name is a net of its own")
      ->type_name("REGEX");
}

std::string NetOf(const NetOptions& options, const std::string& name) {
  // The library's matcher goes a level deeper for each letter; names this long are no names of nets.
  constexpr std::size_t kLongest = 1000;
  std::smatch match;
  if (options.Pattern && name.size() <= kLongest && std::regex_search(name, match, *options.Pattern) &&
      match[1].matched)
    return match[1];
  return name;
}

}  // namespace yax
