#include "import/body_outline.h"

#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

namespace importer {

namespace {

using Corner = std::pair<std::int64_t, std::int64_t>;

/// Rounds to a micrometre, so that ends that nearly coincide are one corner.
Corner CornerOf(const glm::dvec2& point) {
  return {std::llround(point.x * 1e3), std::llround(point.y * 1e3)};
}

/// Connected lines.
struct Chain {
  Box Bounds;
  bool Closed = true;  ///< two lines, or another even number, meet at every corner
};

/// The root of a number's set of joined numbers.
std::size_t RootOf(std::vector<std::size_t>& parents, std::size_t number) {
  while (parents[number] != number) number = parents[number] = parents[parents[number]];
  return number;
}

std::optional<Box> Largest(const std::optional<Box>& a, const Box& b) {
  return a && a->Area() >= b.Area() ? a : b;
}

}  // namespace

std::optional<Box> BodyOutline::Bounds() const {
  std::map<Corner, std::vector<std::size_t>> corners;
  std::vector<std::size_t> parents(lines_.size());
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    parents[i] = i;
    corners[CornerOf(lines_[i].From)].push_back(i);
    corners[CornerOf(lines_[i].To)].push_back(i);
  }
  for (const auto& [corner, meeting] : corners)
    for (const std::size_t line : meeting) parents[RootOf(parents, line)] = RootOf(parents, meeting.front());
  std::map<std::size_t, Chain> chains;
  std::optional<Box> all;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Box box = BoxOf(lines_[i].From, lines_[i].To);
    const auto [chain, isNew] = chains.try_emplace(RootOf(parents, i), Chain{box});
    if (!isNew) chain->second.Bounds = Around(chain->second.Bounds, box);
    all = all ? Around(*all, box) : box;
  }
  for (const auto& [corner, meeting] : corners)
    if (meeting.size() % 2 != 0) chains.at(RootOf(parents, meeting.front())).Closed = false;
  std::optional<Box> largest;
  for (const Box& box : closed_) largest = Largest(largest, box);
  for (const auto& [root, chain] : chains)
    if (chain.Closed) largest = Largest(largest, chain.Bounds);
  return largest ? largest : all;
}

}  // namespace importer
