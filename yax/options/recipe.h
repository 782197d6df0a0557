/// Reads a recipe: a file with the options of a command, one a line.
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

/// Reads the format of CLI11's configuration files: "key = value", lists in brackets, texts with commas or
/// blanks in quotes, "#" comments, also after a value.
/// Faults  Unusable with the file and the key when a key occurs twice or the text has sections
std::vector<RecipeItem> ReadRecipe(std::string_view text, const std::string& file);

}  // namespace yax
