#include "yax/segment_tree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace yax {

namespace {

constexpr std::uint32_t kLeafSize = 4;
constexpr std::size_t kEnds = 6;  ///< coordinates of both ends of a piece

double Coordinate(const WirePiece& piece, std::size_t which) {
  return which < 3 ? piece.Line.A[which] : piece.Line.B[which - 3];
}

}  // namespace

SegmentTree::SegmentTree(std::vector<WirePiece> pieces) : pieces_(std::move(pieces)) {
  if (pieces_.empty()) return;
  nodes_.reserve(pieces_.size());
  Build(0, static_cast<std::uint32_t>(pieces_.size()));
}

/// Splits at the median of the coordinate, of either end, in which the bundle is widest.
std::uint32_t SegmentTree::Build(std::uint32_t begin, std::uint32_t end) {
  const auto number = static_cast<std::uint32_t>(nodes_.size());
  nodes_.push_back({.Axis = {}, .Begin = begin, .End = end});
  Enclose(nodes_[number]);
  if (end - begin <= kLeafSize) return number;
  const std::size_t widest = WidestOf(nodes_[number]);
  const std::uint32_t middle = begin + (end - begin) / 2;
  std::nth_element(pieces_.begin() + begin, pieces_.begin() + middle, pieces_.begin() + end,
                   [widest](const WirePiece& a, const WirePiece& b) {
                     return Coordinate(a, widest) < Coordinate(b, widest);
                   });
  Build(begin, middle);
  const std::uint32_t right = Build(middle, end);
  nodes_[number].Right = right;
  return number;
}

void SegmentTree::Enclose(Node& node) const {
  double largest = 0.0;
  for (std::size_t k = 0; k < kEnds; ++k) {
    double low = Coordinate(pieces_[node.Begin], k);
    double high = low;
    for (std::uint32_t i = node.Begin; i < node.End; ++i) {
      low = std::min(low, Coordinate(pieces_[i], k));
      high = std::max(high, Coordinate(pieces_[i], k));
    }
    largest = std::max({largest, std::fabs(low), std::fabs(high)});
    (k < 3 ? node.Axis.A[k] : node.Axis.B[k - 3]) = (low + high) / 2.0;
    (k < 3 ? node.BeginHalf[k] : node.EndHalf[k - 3]) = (high - low) / 2.0;
  }
  node.Hair = 1e-12 * largest;
  node.Net = pieces_[node.Begin].Net;
  for (std::uint32_t i = node.Begin; i < node.End; ++i)
    if (pieces_[i].Net != node.Net) node.Net = kNone;
}

/// Counts a width the less, the more it lies along the bundle: pieces side by side are told apart by a
/// search, pieces one behind the other hardly.
std::size_t SegmentTree::WidestOf(const Node& node) {
  model::Point3 along{};
  double squared = 0.0;
  for (std::size_t k = 0; k < along.size(); ++k) {
    along[k] = node.Axis.B[k] - node.Axis.A[k];
    squared += along[k] * along[k];
  }
  std::size_t widest = 0;
  double greatest = -1.0;
  for (std::size_t k = 0; k < kEnds; ++k) {
    const double part = squared == 0.0 ? 0.0 : along[k % 3] * along[k % 3] / squared;
    const double width =
        (k < 3 ? node.BeginHalf[k] : node.EndHalf[k - 3]) * std::sqrt(std::max(1.0 - part, 0.0));
    if (width <= greatest) continue;
    widest = k;
    greatest = width;
  }
  return widest;
}

/// The gap between the shadows of both on any one line is never more than their distance. The line through
/// the nearest points of query and axis shows most of it.
double SegmentTree::LeastDistance(const Node& node, const WirePiece& query) {
  ++effort_;
  const model::Nearness near = model::NearestPoints(node.Axis, query.Line);
  if (near.Distance == 0.0) return 0.0;
  double queryA = 0.0, queryB = 0.0, axisA = 0.0, axisB = 0.0;
  for (std::size_t k = 0; k < near.OnFirst.size(); ++k) {
    const double along = (near.OnSecond[k] - near.OnFirst[k]) / near.Distance;
    queryA += along * (query.Line.A[k] - near.OnFirst[k]);
    queryB += along * (query.Line.B[k] - near.OnFirst[k]);
    axisA += along * (node.Axis.A[k] - near.OnFirst[k]) + std::fabs(along) * node.BeginHalf[k];
    axisB += along * (node.Axis.B[k] - near.OnFirst[k]) + std::fabs(along) * node.EndHalf[k];
  }
  return std::min(queryA, queryB) - std::max(axisA, axisB) - node.Hair;
}

}  // namespace yax
