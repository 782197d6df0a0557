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

/// Splits at the median of the coordinate, of either end, in which the pieces differ most.
std::uint32_t SegmentTree::Build(std::uint32_t begin, std::uint32_t end) {
  const auto number = static_cast<std::uint32_t>(nodes_.size());
  nodes_.push_back({.Axis = {}, .Begin = begin, .End = end});
  const std::size_t widest = Enclose(nodes_[number]);
  if (end - begin <= kLeafSize) return number;
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

/// Puts the axis between the middles of where pieces begin and of where they end. A point part of the way
/// along a piece is then off the axis by no more than the farther off of the piece's ends. Returns the
/// coordinate in which the pieces differ most
std::size_t SegmentTree::Enclose(Node& node) const {
  std::array<double, kEnds> low{};
  std::array<double, kEnds> high{};
  std::size_t widest = 0;
  double largest = 0.0;
  for (std::size_t k = 0; k < kEnds; ++k) {
    low[k] = high[k] = Coordinate(pieces_[node.Begin], k);
    for (std::uint32_t i = node.Begin; i < node.End; ++i) {
      low[k] = std::min(low[k], Coordinate(pieces_[i], k));
      high[k] = std::max(high[k], Coordinate(pieces_[i], k));
    }
    if (high[k] - low[k] > high[widest] - low[widest]) widest = k;
    largest = std::max({largest, std::fabs(low[k]), std::fabs(high[k])});
    (k < 3 ? node.Axis.A[k] : node.Axis.B[k - 3]) = (low[k] + high[k]) / 2.0;
  }
  const auto halfDiagonal = [&](std::size_t first) {
    return std::hypot(high[first] - low[first], high[first + 1] - low[first + 1],
                      high[first + 2] - low[first + 2]) /
           2.0;
  };
  // A hair thicker than needed, so that rounding hides nothing.
  constexpr double kHair = 1e-12;
  node.Radius = std::max(halfDiagonal(0), halfDiagonal(3)) + kHair * largest;
  node.Net = pieces_[node.Begin].Net;
  for (std::uint32_t i = node.Begin; i < node.End; ++i)
    if (pieces_[i].Net != node.Net) node.Net = kNone;
  return widest;
}

double SegmentTree::DistanceTo(const Node& node, const WirePiece& query) const {
  return model::NearestPoints(node.Axis, query.Line).Distance - node.Radius;
}

}  // namespace yax
