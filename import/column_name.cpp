#include "import/column_name.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace importer {

namespace {

template <std::size_t kCount>
bool IsOneOf(std::string_view name, const std::string_view (&names)[kCount]) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

std::string Plain(std::string_view text) {
  constexpr std::string_view kMarks = " _\t\n.-";
  std::string plain;
  for (const char letter : text.substr(0, text.find_first_of("(["))) {
    if (kMarks.find(letter) != std::string_view::npos) continue;
    plain += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  }
  return plain;
}

/// The subject that a word names. Some words name a subject only together with a number, name or place: "die"
/// alone may be one chip of several.
std::optional<std::string> SubjectOf(std::string_view word, bool alone) {
  static constexpr std::pair<std::string_view, std::string_view> kSubjects[] = {
      {"pad", "pad"},          {"bondpad", "pad"}, {"diepad", "pad"},      {"lead", "lead"},
      {"finger", "lead"},      {"ball", "lead"},   {"bondfinger", "lead"}, {"packagepin", "lead"},
      {"packagelead", "lead"}, {"pin", "pin"},     {"net", "net"},         {"signal", "signal"}};
  static constexpr std::pair<std::string_view, std::string_view> kWithMore[] = {
      {"", ""}, {"die", "pad"}, {"subs", "lead"}, {"substrate", "lead"}, {"package", "lead"}};
  for (const auto& [name, subject] : kSubjects)
    if (name == word) return std::string(subject);
  if (alone) return std::nullopt;
  for (const auto& [name, subject] : kWithMore)
    if (name == word) return std::string(subject);
  return std::nullopt;
}

/// "padx" for "Die X", "X (um)" and "pad_centre_x"; nothing for any other name.
std::optional<std::string> PlaceName(std::string plain) {
  for (const std::string_view filler :
       {"coordinate", "coord", "position", "pos", "center", "centre", "location", "loc"}) {
    const std::size_t at = plain.find(filler);
    if (at == std::string::npos) continue;
    plain.erase(at, filler.size());
    break;
  }
  if (plain.empty()) return std::nullopt;
  for (const char axis : {'x', 'y'}) {
    if (plain.back() == axis)
      if (const auto subject = SubjectOf(std::string_view(plain).substr(0, plain.size() - 1), false))
        return *subject + axis;
    if (plain.front() == axis)
      if (const auto subject = SubjectOf(std::string_view(plain).substr(1), false)) return *subject + axis;
  }
  return std::nullopt;
}

}  // namespace

std::string ColumnName(std::string_view text) {
  const std::string plain = Plain(text);
  if (const auto place = PlaceName(plain)) return *place;
  if (const auto subject = SubjectOf(plain, true)) return *subject;
  static constexpr std::pair<std::string_view, std::string_view> kSaid[] = {
      {"name", "name"}, {"number", "#"}, {"num", "#"}, {"no", "#"}, {"nr", "#"}, {"id", "#"}, {"#", "#"}};
  for (const auto& [ending, said] : kSaid) {
    if (!plain.ends_with(ending)) continue;
    const auto subject = SubjectOf(std::string_view(plain).substr(0, plain.size() - ending.size()), false);
    if (subject) return *subject + std::string(said);
  }
  if (IsOneOf(plain, {"padwidth", "sizex", "xsize"})) return "width";
  if (IsOneOf(plain, {"padheight", "sizey", "ysize"})) return "height";
  return plain;
}

bool IsKnownColumn(std::string_view name) {
  return name.ends_with("name") ||
         IsOneOf(name, {"pad",  "pad#",  "padx", "pady",  "lead",   "lead#",  "leadx", "leady", "pin",
                        "pin#", "pinx",  "piny", "net",   "net#",   "signal", "#",     "x",     "y",
                        "side", "layer", "tier", "width", "height", "type",   "angle"});
}

bool IsNeedlessColumn(std::string_view name) {
  return IsOneOf(name, {"length", "bondlength", "wirelength", "bondangle", "comment", "remark", "remarks",
                        "note", "notes", "description"});
}

}  // namespace importer
