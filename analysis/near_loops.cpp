#include "analysis/near_loops.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <span>
#include <thread>
#include <tuple>
#include <utility>

#include "analysis/segment_tree.h"

namespace analysis {

namespace {

constexpr std::uint32_t kNoLoop = UINT32_MAX;
/// Loops in a thread's unit of work. It does not depend on the machine, so all machines find the same pairs.
constexpr std::size_t kLoopsPerBlock = 4096;

std::vector<WirePiece> PiecesOf(const std::vector<LoopOfNet>& loops) {
  std::vector<WirePiece> pieces;
  for (std::uint32_t number = 0; number < loops.size(); ++number) {
    const LoopOfNet& loop = loops[number];
    for (std::size_t k = 0; k + 1 < loop.Points.size(); ++k)
      pieces.push_back({{loop.Points[k], loop.Points[k + 1]}, number, loop.Net});
  }
  return pieces;
}

/// Searches for the neighbours of one loop after the other.
class LoopSearch {
 public:
  LoopSearch(const std::vector<LoopOfNet>& loops, const SegmentTree& tree, double reach)
      : loops_(loops),
        tree_(tree),
        reach_(reach),
        found_(loops.size()),
        nearest_(loops.size(), LoopPair{.Distance = HUGE_VAL}) {}

  std::vector<LoopPair> Run(std::size_t begin, std::size_t end) {
    for (std::size_t number = begin; number < end; ++number) SearchAround(static_cast<std::uint32_t>(number));
    for (std::size_t number = begin; number < end; ++number)
      if (nearest_[number].Distance < HUGE_VAL) result_.push_back(nearest_[number]);
    return std::move(result_);
  }

 private:
  /// The nearest approach found so far of a loop and the loop being searched for.
  struct Found {
    std::uint32_t By = kNoLoop;
    bool Compared = false;
    LoopPair Pair{.Distance = HUGE_VAL};
  };

  /// After a touching pair only pairs within reach still matter.
  double BoundOf(std::uint32_t number) const {
    const double nearest = nearest_[number].Distance;
    return std::max(nearest > 0.0 ? nearest : -1.0, reach_);
  }

  /// Searches around the long last piece first: it has the most neighbours and leaves a small bound for the
  /// short pieces, which are searched together.
  void SearchAround(std::uint32_t number) {
    touched_.clear();
    const std::span<const glm::dvec3> points = loops_[number].Points;
    for (const std::span<const glm::dvec3> run : {points.last(2), points.first(points.size() - 1)}) {
      double bound = BoundOf(number);
      tree_.Search({run, loops_[number].Net}, bound, [&](const WirePiece& piece) {
        for (std::size_t k = 0; k + 1 < run.size(); ++k) Measure(number, {run[k], run[k + 1]}, piece);
        bound = BoundOf(number);
      });
    }
    for (const std::uint32_t other : touched_)
      if (found_[other].Pair.Distance <= reach_) result_.push_back(found_[other].Pair);
  }

  void Measure(std::uint32_t number, const analysis::Segment& line, const WirePiece& piece) {
    Found& found = found_[piece.Wire];
    if (found.By != number) {
      found = {.By = number, .Compared = AreCompared(loops_[number], loops_[piece.Wire])};
      if (found.Compared) touched_.push_back(piece.Wire);
    }
    if (!found.Compared) return;
    const analysis::Nearness near = analysis::NearestPoints(line, piece.Line);
    if (near.Distance >= found.Pair.Distance) return;
    found.Pair = {std::min(number, piece.Wire), std::max(number, piece.Wire), near.Distance,
                  (near.OnFirst + near.OnSecond) / 2.0};
    // The distance counts for both loops, so the other one's search starts with a smaller bound.
    for (const std::uint32_t loop : {number, piece.Wire})
      if (near.Distance < nearest_[loop].Distance) nearest_[loop] = found.Pair;
  }

  const std::vector<LoopOfNet>& loops_;
  const SegmentTree& tree_;
  double reach_;
  std::vector<Found> found_;
  std::vector<std::uint32_t> touched_;  ///< the loops that are in found_ for the one being searched for
  std::vector<LoopPair> nearest_;       ///< the nearest pair of each loop so far
  std::vector<LoopPair> result_;
};

/// A pair may be found from both its loops.
void SortAndDropDuplicates(std::vector<LoopPair>& pairs) {
  const auto names = [](const LoopPair& pair) { return std::tie(pair.First, pair.Second); };
  std::sort(pairs.begin(), pairs.end(), [](const LoopPair& a, const LoopPair& b) {
    return std::tie(a.First, a.Second, a.Distance) < std::tie(b.First, b.Second, b.Distance);
  });
  const auto same = [&](const LoopPair& a, const LoopPair& b) { return names(a) == names(b); };
  pairs.erase(std::unique(pairs.begin(), pairs.end(), same), pairs.end());
  std::sort(pairs.begin(), pairs.end(), [](const LoopPair& a, const LoopPair& b) {
    return std::tie(a.Distance, a.First, a.Second) < std::tie(b.Distance, b.First, b.Second);
  });
}

}  // namespace

bool AreCompared(const LoopOfNet& a, const LoopOfNet& b) {
  if (a.Net == b.Net) return false;
  for (const std::uint32_t pad : a.Pads)
    if (pad == b.Pads.front() || pad == b.Pads.back()) return false;
  for (const glm::dvec3* end : {&a.Points.front(), &a.Points.back()})
    if (*end == b.Points.front() || *end == b.Points.back()) return false;
  return true;
}

std::vector<LoopPair> FindNearLoops(const std::vector<LoopOfNet>& loops, double reach) {
  const SegmentTree tree(PiecesOf(loops));
  std::vector<std::vector<LoopPair>> blocks((loops.size() + kLoopsPerBlock - 1) / kLoopsPerBlock);
  std::atomic<std::size_t> next = 0;
  const auto search = [&] {
    for (std::size_t block = next++; block < blocks.size(); block = next++)
      blocks[block] = LoopSearch(loops, tree, reach)
                          .Run(block * kLoopsPerBlock, std::min((block + 1) * kLoopsPerBlock, loops.size()));
  };
  {
    std::vector<std::jthread> helpers;
    const std::size_t most = std::min<std::size_t>(blocks.size(), std::thread::hardware_concurrency());
    for (std::size_t k = 1; k < most; ++k) helpers.emplace_back(search);
    search();
  }
  std::vector<LoopPair> all;
  for (const std::vector<LoopPair>& block : blocks) all.insert(all.end(), block.begin(), block.end());
  SortAndDropDuplicates(all);
  return all;
}

}  // namespace analysis
