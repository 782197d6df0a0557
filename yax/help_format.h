/// How the help texts look: a line an option, in the form that makers of manual pages read.
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

/// The words between which an option chooses; empty when it takes anything.
std::vector<std::string> ChoicesOf(const CLI::Option& option);

/// The value that an option takes, as help and completion name it; empty for a flag.
std::string ValueNameOf(const CLI::Option& option);

}  // namespace yax
