#include "yax/options/nets.h"

#include <CLI/CLI.hpp>
#include <cstddef>

#include "yax/messages.h"

namespace yax {

namespace {

// The library goes a level deeper for each letter of a pattern and of a name, and its stack has an end. No
// net has a name this long.
constexpr std::size_t kLongest = 1000;

std::regex PatternOf(const std::string& text) {
  if (text.size() > kLongest)
    throw Unusable(CommandLine(), "--net-pattern has more than 1000 letters", "give a shorter one");
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
  std::smatch match;
  if (options.Pattern && name.size() <= kLongest && std::regex_search(name, match, *options.Pattern) &&
      match[1].matched)
    return match[1];
  return name;
}

}  // namespace yax
