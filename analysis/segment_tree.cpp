#include "analysis/segment_tree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <glm/geometric.hpp>
#include <utility>

namespace analysis {

namespace {

constexpr std::uint32_t kLeafSize = 4;
constexpr int kEnds = 6;  ///< coordinates of both ends of a piece

double Coordinate(const WirePiece& piece, int which) {
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
  const int widest = WidestOf(nodes_[number]);
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
  for (int k = 0; k < kEnds; ++k) {
    double low = Coordinate(pieces_[node.Begin], k);
    double high = low;
    for (std::uint32_t i = node.Begin; i < node.End; ++i) {
      low = std::min(low, Coordinate(pieces_[i], k));
      high = std::max(high, Coordinate(pieces_[i], k));
    }
    largest = std::max({largest, std::fabs(low), std::fabs(high)});
    const bool begin = k < 3;
    double& least = node.Low[k % 3];
    double& most = node.High[k % 3];
    least = begin ? low : std::min(least, low);
    most = begin ? high : std::max(most, high);
    (begin ? node.Axis.A[k] : node.Axis.B[k - 3]) = (low + high) / 2.0;
    (begin ? node.BeginHalf[k] : node.EndHalf[k - 3]) = (high - low) / 2.0;
  }
  node.RoundingSlack = 1e-12 * largest;
  node.Net = pieces_[node.Begin].Net;
  for (std::uint32_t i = node.Begin; i < node.End; ++i)
    if (pieces_[i].Net != node.Net) node.Net = kNone;
}

/// The axis to split. Widths along the bundle count less: splitting pieces that lie side by side helps a
/// search, splitting pieces that follow one another hardly does.
int SegmentTree::WidestOf(const Node& node) {
  const glm::dvec3 along = node.Axis.B - node.Axis.A;
  const double squared = glm::dot(along, along);
  int widest = 0;
  double greatest = -1.0;
  for (int k = 0; k < kEnds; ++k) {
    const double part = squared == 0.0 ? 0.0 : along[k % 3] * along[k % 3] / squared;
    const double width =
        (k < 3 ? node.BeginHalf[k] : node.EndHalf[k - 3]) * std::sqrt(std::max(1.0 - part, 0.0));
    if (width <= greatest) continue;
    widest = k;
    greatest = width;
  }
  return widest;
}

SegmentTree::Query SegmentTree::QueryOf(const WireRun& run) {
  Query query{.Run = run, .Low = run.Points.front(), .High = run.Points.front()};
  for (const glm::dvec3& point : run.Points) {
    for (int k = 0; k < 3; ++k) {
      query.Low[k] = std::min(query.Low[k], point[k]);
      query.High[k] = std::max(query.High[k], point[k]);
    }
  }
  return query;
}

/// A lower bound of the distance. The gap of the bounding boxes is cheap and decides for short pieces and
/// most others. Within reach comes the gap of the projections onto one line, which is never more than the
/// distance; the line through the closest points of the node's axis and the run's chord shows most of it.
double SegmentTree::LeastDistance(const Node& node, const Query& query, double reach) {
  double squared = 0.0;
  for (int k = 0; k < 3; ++k) {
    const double gap = std::max({node.Low[k] - query.High[k], query.Low[k] - node.High[k], 0.0});
    squared += gap * gap;
  }
  const double between = std::max(std::sqrt(squared) - node.RoundingSlack, 0.0);
  if (between > reach) return between;
  const std::span<const glm::dvec3> points = query.Run.Points;
  const Nearness near = NearestPoints(node.Axis, {points.front(), points.back()});
  if (near.Distance == 0.0) return between;
  glm::dvec3 line{};
  double axisA = 0.0, axisB = 0.0;
  for (int k = 0; k < 3; ++k) {
    line[k] = (near.OnSecond[k] - near.OnFirst[k]) / near.Distance;
    axisA += line[k] * (node.Axis.A[k] - near.OnFirst[k]) + std::fabs(line[k]) * node.BeginHalf[k];
    axisB += line[k] * (node.Axis.B[k] - near.OnFirst[k]) + std::fabs(line[k]) * node.EndHalf[k];
  }
  double least = HUGE_VAL;
  for (const glm::dvec3& point : points) {
    double projection = 0.0;
    for (int k = 0; k < 3; ++k) projection += line[k] * (point[k] - near.OnFirst[k]);
    least = std::min(least, projection);
  }
  return std::max(between, least - std::max(axisA, axisB) - node.RoundingSlack);
}

}  // namespace analysis
