#include "sheet/title_fields.h"

#include <array>
#include <utility>

#include "model/text.h"

namespace sheet {

namespace {

constexpr std::array<std::pair<std::string_view, std::string TitleFields::*>, 8> kKeys{
    {{"title", &TitleFields::Title},
     {"part", &TitleFields::Part},
     {"package", &TitleFields::Package},
     {"drawn", &TitleFields::Drawn},
     {"checked", &TitleFields::Checked},
     {"approved", &TitleFields::Approved},
     {"date", &TitleFields::Date},
     {"revision", &TitleFields::Revision}}};

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string AllKeys() {
  std::string keys;
  for (const auto& [key, field] : kKeys) (keys += keys.empty() ? "" : " ") += key;
  return keys;
}

}  // namespace

void SetTitleField(const model::FilePlace& place, std::string_view setting, TitleFields& fields) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string_view::npos)
    throw model::InputError(place, model::Quoted(setting) + " has no '='", "write KEY=TEXT");
  const std::string_view name = Trimmed(setting.substr(0, equals));
  for (const auto& [key, field] : kKeys) {
    if (key != name) continue;
    fields.*field = Trimmed(setting.substr(equals + 1));
    return;
  }
  throw model::InputError(place, "unknown key " + model::Quoted(name), "use one of " + AllKeys());
}

void ReadTitleFields(const std::string& file, std::string_view text, TitleFields& fields) {
  std::size_t number = 0;
  model::Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    ++number;
    const std::string_view setting = Trimmed(line);
    if (!setting.empty() && setting.front() != '#') SetTitleField({file, number}, setting, fields);
  }
}

}  // namespace sheet
