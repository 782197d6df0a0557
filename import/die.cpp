#include "import/die.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "import/names.h"

namespace importer {

namespace {

constexpr std::array<char, 4> kSides = {'B', 'R', 'T', 'L'};

/// The distance of a place inside the die from an edge; negative outside.
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

/// The distance from a pad to the next pad of its row along an edge.
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
  // Choose for all corners before changing any, so that their order does not matter.
  std::vector<char> chosen;
  for (const DiePad* pad : corners) {
    const std::vector<char> sides = NearestSides(*pad, die);
    chosen.push_back(*std::min_element(sides.begin(), sides.end(), [&](char a, char b) {
      return ToNextInRow(a, *pad, die) < ToNextInRow(b, *pad, die);
    }));
  }
  for (std::size_t i = 0; i < corners.size(); ++i) corners[i]->Side = chosen[i];
}

std::vector<std::string> NamePads(std::vector<DiePad>& pads) {
  std::vector<std::string> given;
  for (const DiePad& pad : pads) given.push_back(pad.Name);
  FieldNames fields = FieldNamesOf(given, Repeat::OtherThing, "pads");
  for (std::size_t i = 0; i < pads.size(); ++i) {
    if (pads[i].Pin.empty()) pads[i].Pin = given[i];
    pads[i].Name = std::move(fields.Names[i]);
  }
  return std::move(fields.Findings);
}

}  // namespace importer
