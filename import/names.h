/// Names of pads and leads as a package can hold them, and lists of names for messages.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace importer {

/// Valid names, one for each given name, and findings on what was changed.
struct FieldNames {
  std::vector<std::string> Names;
  std::vector<std::string> Findings;
};

/// The meaning of a name that is given twice: the same thing once more, or another thing.
enum class Repeat { SameThing, OtherThing };

/// Makes names valid for a package: blanks and control bytes become "_". When two things would get the same
/// name, the one that has it unchanged keeps it, else the first one; the others become NAME_2 and so on,
/// skipping names in use. Findings call the things `things`, for example "leads".
FieldNames FieldNamesOf(const std::vector<std::string>& given, Repeat repeat, const std::string& things);

/// A name not in `taken`: `name`, else NAME_2 and so on, counting from `number`.
template <class Taken>
std::string FreeName(const std::string& name, const Taken& taken, std::size_t number = 2) {
  std::string free = name;
  for (; taken.contains(free); ++number) free = name + "_" + std::to_string(number);
  return free;
}

/// A name of a LEF or DEF file without the backslashes that escape its characters.
std::string Unescaped(std::string_view word);

/// Names of things in a message: the first ones, and how many more there are.
std::string Listed(const std::vector<std::string>& names);

/// "1 wire has", "3 wires have".
std::string Counted(std::size_t count, const std::string& one, const std::string& several);

}  // namespace importer
