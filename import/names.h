/// Names of pads and leads as a package can hold them, and lists of names for messages.
#pragma once

#include <string>
#include <vector>

namespace importer {

/// Names that a package can hold, one for each that was given, and what was changed in them.
struct FieldNames {
  std::vector<std::string> Names;
  std::vector<std::string> Findings;
};

/// What it means when a name is given twice: the same thing once more, or another thing.
enum class Repeat { SameThing, OtherThing };

/// Makes names fit for a package: blanks and control bytes become "_". A name that two things would have
/// stays with the one that has it unchanged, else with the first one; the others become NAME_2 and so on,
/// past all names that are there. `things` says in findings whose names these are, for example "leads".
FieldNames FieldNamesOf(const std::vector<std::string>& given, Repeat repeat, const std::string& things);

/// A name that no other has: `name`, or `name` with the first free number from `number` on behind it.
template <class Taken>
std::string FreeName(const std::string& name, const Taken& taken, std::size_t number = 2) {
  std::string free = name;
  for (; taken.contains(free); ++number) free = name + "_" + std::to_string(number);
  return free;
}

/// Names of things in a message: the first ones, and how many more there are.
std::string Listed(const std::vector<std::string>& names);

/// "1 wire has", "3 wires have".
std::string Counted(std::size_t count, const std::string& one, const std::string& several);

}  // namespace importer
