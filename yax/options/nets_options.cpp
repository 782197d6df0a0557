#include "yax/options/nets_options.h"

#include <CLI/CLI.hpp>
#include <string>

#include "model/text.h"
#include "yax/messages.h"

namespace yax {

namespace {

std::regex PatternOf(const std::string& text) {
  if (text.size() > model::kMostForRegex)
    throw Unusable(CommandLine(),
                   "--net-pattern is longer than " + std::to_string(model::kMostForRegex) + " characters",
                   "give a shorter one");
  try {
    const std::regex pattern(text);
    if (pattern.mark_count() > 0) return pattern;
  } catch (const std::regex_error&) {
    throw Unusable(CommandLine(), "--net-pattern " + model::Quoted(text) + " is not a regular expression",
                   "give one such as '^(V..)_'");
  }
  throw Unusable(CommandLine(), "--net-pattern " + model::Quoted(text) + " has no group",
                 "put the net's part of the name in parentheses, such as '^(V..)_'");
}

}  // namespace

void AddNetOptions(CLI::App& command, analysis::NetRule& rule) {
  command
      .add_option_function<std::string>(
          "--net-pattern", [&rule](const std::string& text) { rule.Pattern = PatternOf(text); },
          "Regular expression for wire names; its first group is the net. Without a match the whole name is")
      ->type_name("REGEX");
}

}  // namespace yax
