#include "shell/help/rtf_words.h"

#include <iterator>
#include <utility>

namespace shell::help {

namespace {

// 22 inches: no length on a page and no font is that large, so larger values are damage.
constexpr int kMaxTwips = 31680;
constexpr int kMaxHalfPoints = 2000;

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The value of `name` in `table`, or null.
template <class Value, std::size_t kSize>
const Value* Find(const std::pair<std::string_view, Value> (&table)[kSize], std::string_view name) {
  for (const auto& [key, value] : table)
    if (key == name) return &value;
  return nullptr;
}

}  // namespace

RtfWord ReadRtfWord(std::string_view bytes, std::size_t& at) {
  RtfWord word;
  const std::size_t start = at;
  while (at < bytes.size() && IsLetter(bytes[at])) ++at;
  word.Name = bytes.substr(start, at - start);
  const bool negative = at + 1 < bytes.size() && bytes[at] == '-' && IsDigit(bytes[at + 1]);
  if (negative) ++at;
  int value = 0;
  const std::size_t digits = at;
  for (; at < bytes.size() && IsDigit(bytes[at]); ++at)
    value = std::min(value, 100'000'000) * 10 + (bytes[at] - '0');
  if (at > digits) word.Value = negative ? -value : value;
  if (at < bytes.size() && bytes[at] == ' ') ++at;
  return word;
}

char32_t CharacterOfRtfWord(std::string_view word) {
  static constexpr std::pair<std::string_view, char32_t> kCharacters[] = {
      {"tab", '\t'},      {"line", '\n'},     {"cell", '\t'},        {"bullet", 0x2022},
      {"emdash", 0x2014}, {"endash", 0x2013}, {"emspace", 0x2003},   {"enspace", 0x2002},
      {"lquote", 0x2018}, {"rquote", 0x2019}, {"ldblquote", 0x201C}, {"rdblquote", 0x201D},
  };
  const char32_t* const character = Find(kCharacters, word);
  return character != nullptr ? *character : 0;
}

bool HidesItsGroup(std::string_view word) {
  static constexpr std::string_view kHidden[] = {
      "stylesheet", "info",    "pict",    "header",  "headerl", "headerr",  "headerf", "footer", "footerl",
      "footerr",    "footerf", "filetbl", "fldinst", "pn",      "footnote", "tc",      "xe",
  };
  return std::find(std::begin(kHidden), std::end(kHidden), word) != std::end(kHidden);
}

bool ApplyToRun(const RtfWord& word, const RtfTables& tables, RunFormat& run) {
  static constexpr std::pair<std::string_view, bool RunFormat::*> kSwitches[] = {
      {"b", &RunFormat::Bold},        {"i", &RunFormat::Italic},      {"strike", &RunFormat::Strike},
      {"ul", &RunFormat::Underline},  {"ulw", &RunFormat::Underline}, {"uld", &RunFormat::Underline},
      {"uldb", &RunFormat::Underline}};
  const std::string_view name = word.Name;
  if (const auto* const member = Find(kSwitches, name)) {
    run.*(*member) = word.On();
  } else if (name == "ulnone") {
    run.Underline = false;
  } else if (name == "super" || name == "sub") {
    const Script script = name == "super" ? Script::Super : Script::Sub;
    run.Position = word.On() ? script : Script::Normal;
  } else if (name == "nosupersub") {
    run.Position = Script::Normal;
  } else if (name == "f") {
    run.Font = word.ValueOr(tables.DefaultFont);
  } else if (name == "fs") {
    run.Size = std::clamp(word.ValueOr(RunFormat{}.Size), 2, kMaxHalfPoints);
  } else if (name == "cf") {
    run.Colour = word.Count() < tables.Colours.size() ? tables.Colours[word.Count()] : -1;
  } else if (name == "plain") {
    run = {};
    run.Font = tables.DefaultFont;
  } else {
    return false;
  }
  return true;
}

bool ApplyToParagraph(const RtfWord& word, ParagraphFormat& paragraph) {
  static constexpr std::pair<std::string_view, Alignment> kAlignments[] = {{"ql", Alignment::Left},
                                                                           {"qc", Alignment::Center},
                                                                           {"qr", Alignment::Right},
                                                                           {"qj", Alignment::Justified}};
  static constexpr std::pair<std::string_view, int ParagraphFormat::*> kLengths[] = {
      {"li", &ParagraphFormat::Left},
      {"ri", &ParagraphFormat::Right},
      {"fi", &ParagraphFormat::First},
      {"sb", &ParagraphFormat::Before},
      {"sa", &ParagraphFormat::After}};
  const int twips = std::clamp(word.ValueOr(0), -kMaxTwips, kMaxTwips);
  if (const auto* const alignment = Find(kAlignments, word.Name)) {
    paragraph.Align = *alignment;
  } else if (const auto* const member = Find(kLengths, word.Name)) {
    paragraph.*(*member) = twips;
  } else if (word.Name == "tx") {
    if (paragraph.Tabs.size() < kMaxRtfTabs) paragraph.Tabs.push_back(twips);
  } else if (word.Name == "pard") {
    paragraph = {};
  } else {
    return false;
  }
  return true;
}

}  // namespace shell::help
