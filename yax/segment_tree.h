/// A search tree over the straight pieces of all wires: finds those that come near without looking at each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "model/segment_distance.h"

namespace yax {

struct WirePiece {
  model::Segment Line;
  std::uint32_t Wire = 0;
  std::uint32_t Net = 0;
};

/// Wires run in bundles, long and side by side; boxes round them would be nearly all air and overlap. So a
/// node is a slanting band: its pieces run from a box at one end of an axis to a box at the other.
class SegmentTree {
 public:
  explicit SegmentTree(std::vector<WirePiece> pieces);

  /// Calls `visit` for the pieces of other nets that may come as near to `query` as `reach`, which is read
  /// again all the time: shrink it once something nearer is found. Pieces may be visited that are farther
  /// away.
  template <class Visit>
  void Search(const WirePiece& query, const double& reach, Visit&& visit);

  /// How many nodes were measured so far.
  std::size_t Effort() const { return effort_; }

 private:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  struct Node {
    model::Segment Axis;        ///< from the middle of where pieces begin to the middle of where they end
    model::Point3 BeginHalf{};  ///< half the extent of where they begin
    model::Point3 EndHalf{};
    double Hair = 0.0;          ///< what rounding may take away
    std::uint32_t Net = kNone;  ///< of all its pieces, or kNone for several
    std::uint32_t Begin = 0, End = 0;
    std::uint32_t Right = kNone;  ///< the left child follows its parent; a leaf has none
  };
  struct Waiting {
    std::uint32_t Node;
    double Distance;
  };

  std::uint32_t Build(std::uint32_t begin, std::uint32_t end);
  void Enclose(Node& node) const;
  static std::size_t WidestOf(const Node& node);
  double LeastDistance(const Node& node, const WirePiece& query);

  std::vector<WirePiece> pieces_;
  std::vector<Node> nodes_;
  std::vector<Waiting> waiting_;
  std::size_t effort_ = 0;
};

template <class Visit>
void SegmentTree::Search(const WirePiece& query, const double& reach, Visit&& visit) {
  waiting_.clear();
  if (!nodes_.empty()) waiting_.push_back({0, 0.0});
  while (!waiting_.empty()) {
    const Waiting next = waiting_.back();
    waiting_.pop_back();
    if (next.Distance > reach) continue;
    const Node& node = nodes_[next.Node];
    if (node.Net == query.Net) continue;
    if (node.Right == kNone) {
      for (std::uint32_t i = node.Begin; i < node.End; ++i)
        if (pieces_[i].Net != query.Net) visit(pieces_[i]);
      continue;
    }
    Waiting near{next.Node + 1, LeastDistance(nodes_[next.Node + 1], query)};
    Waiting far{node.Right, LeastDistance(nodes_[node.Right], query)};
    if (far.Distance < near.Distance) std::swap(near, far);
    waiting_.push_back(far);
    waiting_.push_back(near);
  }
}

}  // namespace yax
