/// The control words of rich text (RTF): how they are written and what each does to a format.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "shell/help/rich_text.h"

namespace shell::help {

/// The stops that a paragraph keeps; further ones are left out.
inline constexpr std::size_t kMaxRtfTabs = 32;

/// A control word with the number behind it, if it has one.
struct RtfWord {
  std::string_view Name;
  std::optional<int> Value;

  int ValueOr(int value) const { return Value.value_or(value); }
  bool On() const { return ValueOr(1) != 0; }
  std::size_t Count() const { return static_cast<std::size_t>(std::max(ValueOr(0), 0)); }
};

/// Reads the word whose first letter stands at `at`: letters, a number, and the one space that ends them.
/// Leaves `at` behind it.
RtfWord ReadRtfWord(std::string_view bytes, std::size_t& at);

/// The character that the word stands for, or 0.
char32_t CharacterOfRtfWord(std::string_view word);

/// True for words that open a group whose text is not part of the page.
bool HidesItsGroup(std::string_view word);

/// What the words of the run formats refer to.
struct RtfTables {
  int DefaultFont = 0;
  std::vector<int> Colours;  ///< as RunFormat::Colour
};

/// Changes the format as the word says; false when the word is about something else.
bool ApplyToRun(const RtfWord& word, const RtfTables& tables, RunFormat& run);
bool ApplyToParagraph(const RtfWord& word, ParagraphFormat& paragraph);

}  // namespace shell::help
