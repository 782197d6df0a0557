#include "yax/options/recipe.h"

#include <CLI/CLI.hpp>
#include <set>
#include <sstream>

#include "model/text.h"
#include "yax/messages.h"

namespace yax {

namespace {

/// A line without its comment. CLI11 would read a "#" inside quotes as a comment.
std::string_view WithoutComment(std::string_view line) {
  char quote = 0;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const char letter = line[at];
    if (quote != 0) {
      if (letter == quote) quote = 0;
    } else if (letter == '#') {
      return line.substr(0, at);
    } else if (letter == '"' || letter == '\'') {
      quote = letter;
    }
  }
  return line;
}

}  // namespace

std::vector<RecipeItem> ReadRecipe(std::string_view text, const std::string& file) {
  std::string plain;
  model::Lines lines(text);
  std::string_view line;
  while (lines.Next(line)) plain.append(WithoutComment(line)).append("\n");
  CLI::ConfigBase format;
  // A byte that does not occur in text: comments are already removed.
  format.comment('\x01');
  std::istringstream stream(plain);
  std::vector<RecipeItem> items;
  std::set<std::string> seen;
  for (CLI::ConfigItem& item : format.from_config(stream)) {
    if (!item.parents.empty())
      throw Unusable({file}, "a recipe has no sections", "remove the lines in brackets");
    if (!seen.insert(item.name).second)
      throw Unusable({file}, "duplicate key " + model::Quoted(item.name),
                     "give several values as a list in brackets");
    items.push_back({item.name, item.inputs});
  }
  return items;
}

}  // namespace yax
