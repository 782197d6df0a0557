#include "yax/help_format.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "model/text.h"

namespace yax {

namespace {

/// "a, b or c"
std::string Alternatives(const std::vector<std::string>& choices) {
  std::string text = choices.front();
  for (std::size_t i = 1; i < choices.size(); ++i)
    text += (i + 1 < choices.size() ? ", " : " or ") + choices[i];
  return text;
}

}  // namespace

std::vector<std::string> ChoicesOf(const CLI::Option& option) {
  // CLI11 offers the choices of a check only as text: "{one,other}" after the type.
  const std::string type = option.get_type_name();
  const std::size_t open = type.find('{');
  const std::size_t close = type.find('}');
  if (open == std::string::npos || close == std::string::npos) return {};
  return CLI::detail::split(type.substr(open + 1, close - open - 1), ',');
}

std::string ValueNameOf(const CLI::Option& option) {
  if (option.get_type_size() == 0) return {};
  const std::vector<std::string> choices = ChoicesOf(option);
  return choices.empty() ? option.get_type_name() : CLI::detail::join(choices, "|");
}

std::string HelpFormat::make_usage(const CLI::App* level, std::string name) const {
  // CLI11's usage line would omit FILE.yax, which every command takes.
  if (level->get_parent() == nullptr) return "Usage: " + name + " COMMAND [OPTIONS] FILE.yax\n";
  return CLI::Formatter::make_usage(level, name);
}

std::string HelpFormat::make_option_name(const CLI::Option* option, bool positional) const {
  if (positional) return option->get_name(true, false);
  return CLI::detail::find_and_replace(option->get_name(false, true), ",", ", ");
}

std::string HelpFormat::make_option_opts(const CLI::Option* option) const {
  if (option->get_positional()) return {};
  const std::string value = ValueNameOf(*option);
  return value.empty() ? value : " " + value;
}

std::string HelpFormat::make_option_desc(const CLI::Option* option) const {
  const bool mark = option->get_required() && !option->get_positional();
  return option->get_description() + (mark ? " (required)" : "");
}

std::string MistakeInValues(const CLI::Option& option, const CLI::ParseError& stop) {
  const int most = option.get_items_expected_max();  // 0 for flags, which may be repeated
  if (most > 0 && static_cast<int>(option.count()) > most)
    return option.get_name() + " is given more than once";
  const std::string_view what = stop.what();
  if (what.starts_with(option.get_name() + ": 1 required ") && what.ends_with(" missing"))
    return option.get_name() + " needs a value (" + ValueNameOf(option) + ")";
  const std::vector<std::string> choices = ChoicesOf(option);
  if (choices.empty()) return {};
  for (const std::string& value : option.results())
    if (std::find(choices.begin(), choices.end(), value) == choices.end())
      return option.get_name() + " " + model::Quoted(value) + " is not " + Alternatives(choices);
  return {};
}

}  // namespace yax
