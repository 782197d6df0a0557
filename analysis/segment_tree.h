/// A search tree over the straight pieces of all wires: finds those that come near without looking at each.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "analysis/segment_distance.h"

namespace analysis {

struct WirePiece {
  Segment Line;
  std::uint32_t Wire = 0;
  std::uint32_t Net = 0;
};

/// Pieces of a wire, one after the other, that are searched for together.
struct WireRun {
  std::span<const glm::dvec3> Points;  ///< at least two
  std::uint32_t Net = 0;
};

/// Wires run in bundles, long and side by side; boxes around them would be mostly empty and overlap. So a
/// node is a slanting band: its pieces run from a box at one end of an axis to a box at the other.
class SegmentTree {
 public:
  explicit SegmentTree(std::vector<WirePiece> pieces);

  /// Calls `visit` for the pieces of other nets that may come as near to `run` as `reach`. The search
  /// re-reads `reach`: shrink it once something nearer is found. Pieces that are farther away may be visited
  /// too. Several threads may search at once.
  template <class Visit>
  void Search(const WireRun& run, const double& reach, Visit&& visit) const;

 private:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  struct Node {
    Segment Axis;            ///< from the middle of where pieces begin to the middle of where they end
    glm::dvec3 BeginHalf{};  ///< half the extent of where they begin
    glm::dvec3 EndHalf{};
    glm::dvec3 Low{}, High{};    ///< bounding box of all pieces
    double RoundingSlack = 0.0;  ///< by how much rounding may enlarge a distance
    std::uint32_t Net = kNone;   ///< net of all its pieces, or kNone for several
    std::uint32_t Begin = 0, End = 0;
    std::uint32_t Right = kNone;  ///< the left child follows its parent; a leaf has none
  };
  struct StackEntry {
    std::uint32_t Node = 0;
    double Distance = 0.0;
  };
  struct Query {
    WireRun Run;
    glm::dvec3 Low{}, High{};
  };
  // One entry for each level above the current one: 2^32 pieces make no more levels.
  static constexpr std::size_t kStackSize = 34;

  std::uint32_t Build(std::uint32_t begin, std::uint32_t end);
  void Enclose(Node& node) const;
  static int WidestOf(const Node& node);
  static Query QueryOf(const WireRun& run);
  static double LeastDistance(const Node& node, const Query& query, double reach);

  std::vector<WirePiece> pieces_;
  std::vector<Node> nodes_;
};

template <class Visit>
void SegmentTree::Search(const WireRun& run, const double& reach, Visit&& visit) const {
  const Query query = QueryOf(run);
  std::array<StackEntry, kStackSize> stack;
  std::size_t count = 0;
  if (!nodes_.empty()) stack[count++] = {0, 0.0};
  while (count > 0) {
    const StackEntry next = stack[--count];
    if (next.Distance > reach) continue;
    const Node& node = nodes_[next.Node];
    if (node.Net == run.Net) continue;
    if (node.Right == kNone) {
      for (std::uint32_t i = node.Begin; i < node.End; ++i)
        if (pieces_[i].Net != run.Net) visit(pieces_[i]);
      continue;
    }
    StackEntry near{next.Node + 1, LeastDistance(nodes_[next.Node + 1], query, reach)};
    StackEntry far{node.Right, LeastDistance(nodes_[node.Right], query, reach)};
    if (far.Distance < near.Distance) std::swap(near, far);
    stack[count++] = far;
    stack[count++] = near;
  }
}

}  // namespace analysis
