/// Help texts with one line per option, in the form that help2man reads, and messages about options.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace yax {

class HelpFormat final : public CLI::Formatter {
 public:
  HelpFormat() { column_width(32); }

  std::string make_usage(const CLI::App* level, std::string name) const override;
  std::string make_option_name(const CLI::Option* option, bool positional) const override;
  std::string make_option_opts(const CLI::Option* option) const override;
  std::string make_option_desc(const CLI::Option* option) const override;
};

/// The words that an option accepts; empty when it accepts any text.
std::vector<std::string> ChoicesOf(const CLI::Option& option);

/// The name of an option's value in help and completion; empty for a flag.
std::string ValueNameOf(const CLI::Option& option);

/// The mistake in an option's values; empty when `stop` is about something else.
std::string MistakeInValues(const CLI::Option& option, const CLI::ParseError& stop);

}  // namespace yax
