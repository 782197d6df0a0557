#include "import/order_match.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <tuple>

namespace importer {

namespace {

/// A place on a grid, so that sums and angles are exact.
struct GridPoint {
  std::int64_t X = 0, Y = 0;
};

using Cost = std::int64_t;

/// The number of grid steps in a millimetre, as many as sums allow without an overflow for the largest
/// coordinate and the number of pairs: a nanometre except for the very largest packages.
double GridSteps(const std::vector<glm::dvec2>& pads, const std::vector<glm::dvec2>& leads) {
  double farthest = 0.0;
  for (const auto* const places : {&pads, &leads})
    for (const glm::dvec2& place : *places)
      farthest = std::max({farthest, std::fabs(place.x), std::fabs(place.y)});
  double steps = 1e6;
  const double pairs = static_cast<double>(std::min(pads.size(), leads.size()));
  // A distance is at most twice the farthest coordinate along each axis.
  while (8.0 * farthest * farthest * steps * steps * pairs > 9e18) steps /= 10.0;
  return steps;
}

/// The half turn of a direction, for sorting: counter-clockwise from the left (excluded) through below to the
/// right, then the other half. The origin has no direction and comes first.
int HalfOf(const GridPoint& point) {
  if (point.X == 0 && point.Y == 0) return 0;
  return point.Y < 0 || (point.Y == 0 && point.X > 0) ? 1 : 2;
}

/// Places by angle, counter-clockwise; of equal angles the nearer first.
std::vector<std::size_t> SortedByAngle(const std::vector<GridPoint>& points) {
  std::vector<std::size_t> order(points.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t i, std::size_t j) {
    const GridPoint& a = points[i];
    const GridPoint& b = points[j];
    if (HalfOf(a) != HalfOf(b)) return HalfOf(a) < HalfOf(b);
    const std::int64_t cross = a.X * b.Y - a.Y * b.X;
    if (cross != 0) return cross > 0;
    return std::tuple(a.X * a.X + a.Y * a.Y, i) < std::tuple(b.X * b.X + b.Y * b.Y, j);
  });
  return order;
}

std::vector<GridPoint> OnGrid(const std::vector<glm::dvec2>& places, double steps) {
  std::vector<GridPoint> points;
  for (const glm::dvec2& place : places)
    points.push_back({std::llround(place.x * steps), std::llround(place.y * steps)});
  return points;
}

std::vector<GridPoint> Sorted(const std::vector<GridPoint>& points, const std::vector<std::size_t>& order) {
  std::vector<GridPoint> sorted;
  for (const std::size_t number : order) sorted.push_back(points[number]);
  return sorted;
}

/// Rows of marks, one bit each.
class MarkRows {
 public:
  void Clear() {
    bits_.clear();
    starts_.clear();
  }
  void BeginRow(std::size_t width) {
    starts_.push_back(bits_.size());
    bits_.resize(bits_.size() + (width + 63) / 64);
  }
  void Mark(std::size_t at, bool mark) { bits_[starts_.back() + at / 64] |= std::uint64_t{mark} << at % 64; }
  /// The last mark of a row at or before `at`.
  /// Needs  such a mark
  std::size_t LastUpTo(std::size_t row, std::size_t at) const {
    while ((bits_[starts_[row] + at / 64] >> at % 64 & 1) == 0) --at;
    return at;
  }

 private:
  std::vector<std::uint64_t> bits_;
  std::vector<std::size_t> starts_;
};

/// Gives each point of the smaller group a partner in the larger. Both are sorted by angle; indices of the
/// larger group run on into a second turn.
class CyclicMatch {
 public:
  CyclicMatch(const std::vector<GridPoint>& few, const std::vector<GridPoint>& many)
      : few_(few), many_(many), turn_(many.size()), spare_(many.size() - few.size()) {
    many_.insert(many_.end(), many.begin(), many.end());
    for (std::size_t j = 0; j < many_.size(); ++j) {
      if (j % kBlock == 0) blocks_.push_back({many_[j], many_[j]});
      GridBox& box = blocks_.back();
      box.Low = {std::min(box.Low.X, many_[j].X), std::min(box.Low.Y, many_[j].Y)};
      box.High = {std::max(box.High.X, many_[j].X), std::max(box.High.Y, many_[j].Y)};
    }
  }

  /// For each of the few the number of its partner.
  std::vector<std::size_t> Run() {
    const Path first = BestPath(0, nullptr, nullptr);
    Path last = first;
    for (std::size_t& partner : last) partner += turn_;
    Halve(0, first, turn_, last);
    for (std::size_t& partner : best_) partner %= turn_;
    return best_;
  }

 private:
  /// Partners of the few, in ascending order; the first one is the start.
  using Path = std::vector<std::size_t>;

  struct GridBox {
    GridPoint Low, High;
  };
  static constexpr std::size_t kBlock = 32;

  Path BestPath(std::size_t start, const Path* low, const Path* high);
  bool MayBeBetter(const Path& low, const Path& high) const;
  void Halve(std::size_t low, const Path& lowPath, std::size_t high, const Path& highPath);
  Cost CostOf(std::size_t i, std::size_t j) const {
    const Cost dx = few_[i].X - many_[j].X;
    const Cost dy = few_[i].Y - many_[j].Y;
    return dx * dx + dy * dy;
  }

  const std::vector<GridPoint>& few_;
  std::vector<GridPoint> many_;
  std::size_t turn_;
  std::size_t spare_;            ///< how many of the many stay free
  std::vector<GridBox> blocks_;  ///< around each kBlock of the many
  Path best_;
  std::size_t bestStart_ = 0;
  Cost bestCost_ = std::numeric_limits<Cost>::max();
  std::vector<Cost> sums_, least_;
  std::vector<std::size_t> firsts_, lasts_;  ///< the range of partners of each row
  MarkRows falls_;                           ///< marks where the least sum of a row so far decreases
};

/// The best partners when the first of the few meets `start`; they lie between the best ones of two other
/// starts. Dynamic programming: row i holds the least sums for the first i + 1 of the few, one for each
/// partner of the last of them. A sum adds its distance to the least sum before its partner in the row above;
/// the marks lead back to it.
CyclicMatch::Path CyclicMatch::BestPath(std::size_t start, const Path* low, const Path* high) {
  const std::size_t count = few_.size();
  falls_.Clear();
  firsts_.assign(count, start);
  lasts_.assign(count, start);
  sums_.assign(1, CostOf(0, start));
  for (std::size_t i = 1; i < count; ++i) {
    firsts_[i] = std::max(start + i, low != nullptr ? (*low)[i] : 0);
    lasts_[i] = high != nullptr ? std::min(start + i + spare_, (*high)[i]) : start + i + spare_;
    falls_.BeginRow(sums_.size());
    Cost least = std::numeric_limits<Cost>::max();
    for (std::size_t k = 0; k < sums_.size(); ++k) {
      const bool falls = sums_[k] < least;
      least = falls ? sums_[k] : least;
      sums_[k] = least;
      falls_.Mark(k, falls);
    }
    least_.swap(sums_);
    sums_.resize(lasts_[i] - firsts_[i] + 1);
    for (std::size_t k = 0; k < sums_.size(); ++k) {
      const std::size_t j = firsts_[i] + k;
      sums_[k] = least_[std::min(j - 1, lasts_[i - 1]) - firsts_[i - 1]] + CostOf(i, j);
    }
  }
  const auto least = std::min_element(sums_.begin(), sums_.end());
  Path path(count);
  path.back() = firsts_.back() + static_cast<std::size_t>(least - sums_.begin());
  for (std::size_t i = count - 1; i > 0; --i)
    path[i - 1] =
        firsts_[i - 1] + falls_.LastUpTo(i - 1, std::min(path[i] - 1, lasts_[i - 1]) - firsts_[i - 1]);
  if (*least < bestCost_ || (*least == bestCost_ && start < bestStart_)) {
    bestCost_ = *least;
    bestStart_ = start;
    best_ = path;
  }
  return path;
}

/// False when no path between two others can be as cheap as the best one so far, even if each of the few took
/// the nearest partner. Uses distances to boxes around partners, which is fast, and rules out most starts,
/// because those lead to the other side of the die.
bool CyclicMatch::MayBeBetter(const Path& low, const Path& high) const {
  Cost sum = 0;
  for (std::size_t i = 0; i < few_.size(); ++i) {
    Cost nearest = std::numeric_limits<Cost>::max();
    for (std::size_t block = low[i] / kBlock; block <= high[i] / kBlock && block < blocks_.size(); ++block) {
      const GridBox& box = blocks_[block];
      const Cost dx = std::max({box.Low.X - few_[i].X, few_[i].X - box.High.X, Cost{0}});
      const Cost dy = std::max({box.Low.Y - few_[i].Y, few_[i].Y - box.High.Y, Cost{0}});
      nearest = std::min(nearest, dx * dx + dy * dy);
    }
    sum += nearest;
  }
  return sum <= bestCost_;
}

/// Tries every start between two whose best paths are known.
void CyclicMatch::Halve(std::size_t low, const Path& lowPath, std::size_t high, const Path& highPath) {
  if (high - low < 2 || !MayBeBetter(lowPath, highPath)) return;
  const std::size_t middle = low + (high - low) / 2;
  const Path path = BestPath(middle, &lowPath, &highPath);
  Halve(low, lowPath, middle, path);
  Halve(middle, path, high, highPath);
}

}  // namespace

std::vector<std::optional<std::size_t>> MatchInOrder(const std::vector<glm::dvec2>& pads,
                                                     const std::vector<glm::dvec2>& leads) {
  std::vector<std::optional<std::size_t>> partners(pads.size());
  if (pads.empty() || leads.empty()) return partners;
  const double steps = GridSteps(pads, leads);
  const std::vector<GridPoint> padPoints = OnGrid(pads, steps);
  const std::vector<GridPoint> leadPoints = OnGrid(leads, steps);
  const std::vector<std::size_t> padOrder = SortedByAngle(padPoints);
  const std::vector<std::size_t> leadOrder = SortedByAngle(leadPoints);
  const std::vector<GridPoint> sortedPads = Sorted(padPoints, padOrder);
  const std::vector<GridPoint> sortedLeads = Sorted(leadPoints, leadOrder);
  const bool padsAreFew = pads.size() <= leads.size();
  CyclicMatch match(padsAreFew ? sortedPads : sortedLeads, padsAreFew ? sortedLeads : sortedPads);
  const std::vector<std::size_t> found = match.Run();
  for (std::size_t i = 0; i < found.size(); ++i) {
    const std::size_t pad = padOrder[padsAreFew ? i : found[i]];
    partners[pad] = leadOrder[padsAreFew ? found[i] : i];
  }
  return partners;
}

}  // namespace importer
