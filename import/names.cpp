#include "import/names.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "model/reader/package_writer.h"

namespace importer {

FieldNames FieldNamesOf(const std::vector<std::string>& given, Repeat repeat, const std::string& things) {
  FieldNames fields;
  std::vector<std::string> cleaned;
  std::unordered_map<std::string, std::size_t> owners;
  for (const std::string& name : given) fields.Names.push_back(model::reader::FieldName(name));
  for (const bool unchanged : {true, false})
    for (std::size_t i = 0; i < given.size(); ++i)
      if ((fields.Names[i] == given[i]) == unchanged) owners.try_emplace(fields.Names[i], i);

  std::unordered_set<std::string> taken(fields.Names.begin(), fields.Names.end());
  std::unordered_map<std::string, std::size_t> counts;
  std::unordered_map<std::string, std::string> replaced;
  std::vector<std::string> renamed;
  for (std::size_t i = 0; i < given.size(); ++i) {
    std::string& name = fields.Names[i];
    if (name != given[i]) cleaned.push_back(name);
    const std::size_t owner = owners.at(name);
    if (owner == i || (repeat == Repeat::SameThing && given[owner] == given[i])) continue;
    if (repeat == Repeat::SameThing && replaced.contains(given[i])) {
      name = replaced.at(given[i]);
      continue;
    }
    // The one that has the name unchanged counts as the first.
    const std::size_t count = ++counts.try_emplace(name, 1).first->second;
    name = FreeName(name, taken, count);
    taken.insert(name);
    replaced[given[i]] = name;
    renamed.push_back(name);
  }
  if (!cleaned.empty())
    fields.Findings.push_back("blanks or control characters in names of " + things +
                              " became '_': " + Listed(cleaned));
  if (!renamed.empty())
    fields.Findings.push_back("names of " + things + " were made unique: " + Listed(renamed));
  return fields;
}

std::string Unescaped(std::string_view word) {
  std::string name;
  name.reserve(word.size());
  for (std::size_t at = 0; at < word.size(); ++at) {
    if (word[at] == '\\' && at + 1 < word.size()) ++at;
    name += word[at];
  }
  return name;
}

std::string Listed(const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 8;
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i) list += (i == 0 ? "" : ", ") + names[i];
  if (names.size() > kMost) list += " and " + std::to_string(names.size() - kMost) + " more";
  return list;
}

std::string Counted(std::size_t count, const std::string& one, const std::string& several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

}  // namespace importer
