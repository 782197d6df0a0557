#include "yax/clearance.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "yax/segment_tree.h"

namespace yax {

namespace {

using model::Point3;

constexpr std::uint32_t kNoLoop = UINT32_MAX;

std::vector<WirePiece> PiecesOf(const LoopOfNet& loop, std::uint32_t number) {
  std::vector<WirePiece> pieces;
  for (std::size_t k = 0; k + 1 < loop.Points.size(); ++k)
    pieces.push_back({{loop.Points[k], loop.Points[k + 1]}, number, loop.Net});
  return pieces;
}

/// The search for what is near one loop after the other.
class LoopSearch {
 public:
  LoopSearch(const std::vector<LoopOfNet>& loops, double reach)
      : loops_(loops),
        reach_(reach),
        tree_(AllPieces(loops)),
        found_(loops.size()),
        nearest_(loops.size(), LoopPair{.Distance = HUGE_VAL}) {}

  LoopPairs Run() {
    for (std::uint32_t number = 0; number < loops_.size(); ++number) SearchRound(number);
    for (const LoopPair& pair : nearest_)
      if (pair.Distance < HUGE_VAL) result_.Nearest.push_back(pair);
    SortAndDropDoubles();
    result_.Effort += tree_.Effort();
    return std::move(result_);
  }

 private:
  /// What is known of one loop and the loop at work.
  struct Found {
    std::uint32_t By = kNoLoop;
    bool Compared = false;
    LoopPair Pair{.Distance = HUGE_VAL};
  };

  static std::vector<WirePiece> AllPieces(const std::vector<LoopOfNet>& loops) {
    std::vector<WirePiece> all;
    for (std::uint32_t number = 0; number < loops.size(); ++number) {
      const std::vector<WirePiece> pieces = PiecesOf(loops[number], number);
      all.insert(all.end(), pieces.begin(), pieces.end());
    }
    return all;
  }

  void SearchRound(std::uint32_t number) {
    touched_.clear();
    // From the long piece at the end backwards: it meets most.
    const std::vector<WirePiece> pieces = PiecesOf(loops_[number], number);
    for (auto query = pieces.rbegin(); query != pieces.rend(); ++query) {
      double bound = std::max(nearest_[number].Distance, reach_);
      tree_.Search(*query, bound, [&](const WirePiece& piece) {
        Measure(*query, piece);
        bound = std::max(nearest_[number].Distance, reach_);
      });
    }
    for (const std::uint32_t other : touched_)
      if (found_[other].Pair.Distance <= reach_) result_.Nearest.push_back(found_[other].Pair);
  }

  void Measure(const WirePiece& query, const WirePiece& piece) {
    Found& found = found_[piece.Wire];
    if (found.By != query.Wire) {
      found = {.By = query.Wire, .Compared = AreCompared(loops_[query.Wire], loops_[piece.Wire])};
      if (found.Compared) touched_.push_back(piece.Wire);
    }
    if (!found.Compared) return;
    ++result_.Effort;
    const model::Nearness near = model::NearestPoints(query.Line, piece.Line);
    if (near.Distance >= found.Pair.Distance) return;
    found.Pair = {std::min(query.Wire, piece.Wire), std::max(query.Wire, piece.Wire), near.Distance, {}};
    for (std::size_t axis = 0; axis < found.Pair.Where.size(); ++axis)
      found.Pair.Where[axis] = (near.OnFirst[axis] + near.OnSecond[axis]) / 2.0;
    // What is near the one is near the other: its own search then starts with a small bound.
    for (const std::uint32_t loop : {query.Wire, piece.Wire})
      if (near.Distance < nearest_[loop].Distance) nearest_[loop] = found.Pair;
  }

  /// A pair may be found from both its loops.
  void SortAndDropDoubles() {
    std::vector<LoopPair>& pairs = result_.Nearest;
    const auto names = [](const LoopPair& pair) { return std::tie(pair.First, pair.Second); };
    std::sort(pairs.begin(), pairs.end(), [&](const LoopPair& a, const LoopPair& b) {
      return std::tie(a.First, a.Second, a.Distance) < std::tie(b.First, b.Second, b.Distance);
    });
    const auto same = [&](const LoopPair& a, const LoopPair& b) { return names(a) == names(b); };
    pairs.erase(std::unique(pairs.begin(), pairs.end(), same), pairs.end());
    std::sort(pairs.begin(), pairs.end(), [](const LoopPair& a, const LoopPair& b) {
      return std::tie(a.Distance, a.First, a.Second) < std::tie(b.Distance, b.First, b.Second);
    });
  }

  const std::vector<LoopOfNet>& loops_;
  double reach_;
  SegmentTree tree_;
  std::vector<Found> found_;
  std::vector<std::uint32_t> touched_;  ///< the loops that are in found_ for the one at work
  std::vector<LoopPair> nearest_;       ///< of each loop, as far as it is known
  LoopPairs result_;
};

}  // namespace

bool AreCompared(const LoopOfNet& a, const LoopOfNet& b) {
  if (a.Net == b.Net) return false;
  for (const std::uint32_t pad : a.Pads)
    if (pad == b.Pads.front() || pad == b.Pads.back()) return false;
  for (const Point3* end : {&a.Points.front(), &a.Points.back()})
    if (*end == b.Points.front() || *end == b.Points.back()) return false;
  return true;
}

LoopPairs FindNearLoops(const std::vector<LoopOfNet>& loops, double reach) {
  return LoopSearch(loops, reach).Run();
}

}  // namespace yax
