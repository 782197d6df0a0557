#include "import/die.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <unordered_set>

#include "model/reader/package_writer.h"

namespace importer {

namespace {

constexpr std::array<char, 4> kSides = {'B', 'R', 'T', 'L'};

/// How far a place inside the die is from an edge; negative outside.
double DistanceTo(char side, const glm::dvec2& middle, const glm::dvec2& dieSize) {
  switch (side) {
    case 'B':
      return dieSize.y / 2.0 + middle.y;
    case 'T':
      return dieSize.y / 2.0 - middle.y;
    case 'L':
      return dieSize.x / 2.0 + middle.x;
    default:
      return dieSize.x / 2.0 - middle.x;
  }
}

bool RunsAlongX(char side) { return side == 'B' || side == 'T'; }

/// From a pad to the nearest pad of a row with it along an edge.
double ToNextInRow(char side, const DiePad& pad, const Die& die) {
  const double depth = DistanceTo(side, pad.Middle, die.Size);
  const double reach = (RunsAlongX(side) ? pad.Size.y : pad.Size.x) / 2.0;
  double nearest = std::numeric_limits<double>::infinity();
  for (const DiePad& other : die.Pads) {
    if (&other == &pad || other.Side != side) continue;
    if (std::fabs(DistanceTo(side, other.Middle, die.Size) - depth) > reach) continue;
    const glm::dvec2 away = other.Middle - pad.Middle;
    nearest = std::min(nearest, std::fabs(RunsAlongX(side) ? away.x : away.y));
  }
  return nearest;
}

/// The nearest edges: one, or several that are equally near.
std::vector<char> NearestSides(const DiePad& pad, const Die& die) {
  constexpr double kEqual = 1e-6;
  double nearest = std::numeric_limits<double>::infinity();
  for (const char side : kSides) nearest = std::min(nearest, DistanceTo(side, pad.Middle, die.Size));
  std::vector<char> sides;
  for (const char side : kSides)
    if (DistanceTo(side, pad.Middle, die.Size) <= nearest + kEqual) sides.push_back(side);
  return sides;
}

}  // namespace

void FindSides(Die& die) {
  std::vector<DiePad*> corners;
  for (DiePad& pad : die.Pads) {
    if (pad.Side != 0) continue;
    const std::vector<char> sides = NearestSides(pad, die);
    if (sides.size() == 1) pad.Side = sides.front();
    if (sides.size() > 1) corners.push_back(&pad);
  }
  // All corners look at the rows without the corners, so that their order does not matter.
  std::vector<char> chosen;
  for (const DiePad* pad : corners) {
    const std::vector<char> sides = NearestSides(*pad, die);
    chosen.push_back(*std::min_element(sides.begin(), sides.end(), [&](char a, char b) {
      return ToNextInRow(a, *pad, die) < ToNextInRow(b, *pad, die);
    }));
  }
  for (std::size_t i = 0; i < corners.size(); ++i) corners[i]->Side = chosen[i];
}

std::string Listed(const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 8;
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i) list += (i == 0 ? "" : ", ") + names[i];
  if (names.size() > kMost) list += " and " + std::to_string(names.size() - kMost) + " more";
  return list;
}

std::vector<std::string> NamePads(std::vector<DiePad>& pads) {
  std::vector<std::string> cleaned;
  std::vector<std::string> renamed;
  std::unordered_set<std::string> given;
  for (DiePad& pad : pads) {
    std::string name = model::reader::FieldName(pad.Name);
    if (name != pad.Name) cleaned.push_back(name);
    if (pad.Pin.empty()) pad.Pin = pad.Name;
    pad.Name = name;
    given.insert(std::move(name));
  }
  std::unordered_map<std::string, std::size_t> seen;
  for (DiePad& pad : pads) {
    const std::size_t count = ++seen[pad.Name];
    if (count == 1) continue;
    pad.Name = FreeName(pad.Name, given, count);
    given.insert(pad.Name);
    renamed.push_back(pad.Name);
  }
  std::vector<std::string> changes;
  if (!cleaned.empty())
    changes.push_back("blanks or control characters in names became '_': " + Listed(cleaned));
  if (!renamed.empty()) changes.push_back("names were made unique: " + Listed(renamed));
  return changes;
}

}  // namespace importer
