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
      : loops_(loops), reach_(reach), tree_(AllPieces(loops)), found_(loops.size()) {}

  LoopPairs Run() {
    for (std::uint32_t number = 0; number < loops_.size(); ++number) SearchRound(number);
    SortAndDropDoubles();
    return std::move(result_);
  }

 private:
  /// The nearest so far of one loop to the loop at work.
  struct Found {
    std::uint32_t By = kNoLoop;
    bool Compared = false;
    double Distance = HUGE_VAL;
    Point3 Where{};
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
    nearest_ = HUGE_VAL;
    double bound = HUGE_VAL;
    for (const WirePiece& query : PiecesOf(loops_[number], number)) {
      tree_.Search(query, bound, [&](const WirePiece& piece) {
        Measure(query, piece);
        bound = std::max(nearest_, reach_);
      });
    }
    bool nearestTaken = false;
    for (const std::uint32_t other : touched_) {
      const Found& found = found_[other];
      const bool isNearest = !nearestTaken && found.Distance == nearest_;
      nearestTaken = nearestTaken || isNearest;
      if (isNearest || found.Distance <= reach_)
        result_.Nearest.push_back(
            {std::min(number, other), std::max(number, other), found.Distance, found.Where});
    }
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
    if (near.Distance >= found.Distance) return;
    found.Distance = near.Distance;
    for (std::size_t axis = 0; axis < found.Where.size(); ++axis)
      found.Where[axis] = (near.OnFirst[axis] + near.OnSecond[axis]) / 2.0;
    nearest_ = std::min(nearest_, near.Distance);
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
  double nearest_ = HUGE_VAL;
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
