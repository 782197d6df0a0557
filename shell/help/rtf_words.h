/// The control words of rich text (RTF): reads them and applies them to a format.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "shell/help/rich_text.h"

namespace shell::help {

/// The largest number of tab stops in a paragraph; further ones are ignored.
inline constexpr std::size_t kMaxRtfTabs = 32;

/// A control word with the number after it, if there is one.
struct RtfWord {
  std::string_view Name;
  std::optional<int> Value;

  int ValueOr(int value) const { return Value.value_or(value); }
  bool On() const { return ValueOr(1) != 0; }
  std::size_t Count() const { return static_cast<std::size_t>(std::max(ValueOr(0), 0)); }
};

/// Reads the word whose first letter is at `at`: letters, a number, and the one space that ends them.
/// Moves `at` past it.
RtfWord ReadRtfWord(std::string_view bytes, std::size_t& at);

/// The character that the word means, or 0.
char32_t CharacterOfRtfWord(std::string_view word);

/// True for words that open a group whose text is not part of the page.
bool HidesItsGroup(std::string_view word);

/// Tables to which the words for runs refer.
struct RtfTables {
  int DefaultFont = 0;
  std::vector<int> Colours;  ///< as RunFormat::Colour
};

/// Applies the word to the format; false when the word does not concern it.
bool ApplyToRun(const RtfWord& word, const RtfTables& tables, RunFormat& run);
bool ApplyToParagraph(const RtfWord& word, ParagraphFormat& paragraph);

}  // namespace shell::help
