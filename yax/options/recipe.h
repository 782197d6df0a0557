/// A recipe: the options of a command in a file, one a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace yax {

/// One line of a recipe.
struct RecipeItem {
  std::string Key;  ///< an option's name without its dashes
  std::vector<std::string> Values;
};

/// Reads the format in which the option library keeps its configuration: "key = value", lists in brackets,
/// texts with commas or blanks in quotes, "#" comments, also behind a value. Faults  Unusable with the file
/// and the key when a key comes twice, or the text has sections
std::vector<RecipeItem> ReadRecipe(std::string_view text, const std::string& file);

}  // namespace yax
