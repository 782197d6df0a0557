#include "analysis/near_pairs.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <glm/common.hpp>
#include <tuple>

namespace analysis {

namespace {

/// A box in one of the cells that it overlaps.
struct Entry {
  std::int64_t X, Y;
  std::size_t Box;

  auto Cell() const { return std::tie(X, Y); }
};

/// A grid of square cells over the boxes, each larger by half the reach on all sides.
class Grid {
 public:
  Grid(const std::vector<PlanBox>& boxes, double reach) : boxes_(boxes), half_(reach / 2.0) {
    double extent = 0.0, farthest = 0.0;
    for (const PlanBox& box : boxes) {
      extent += (box.High.x - box.Low.x + box.High.y - box.Low.y) / 2.0 / static_cast<double>(boxes.size());
      for (const glm::dvec2& corner : {box.Low, box.High})
        farthest = std::max({farthest, std::fabs(corner.x), std::fabs(corner.y)});
    }
    // Keeps the numbers of cells within the range of integers.
    cell_ = std::max({extent + reach, 1e-15 * (farthest + reach), 1e-12});
    // One box that is much larger than the others would fill the table of entries.
    while (CountEntries() > 16.0 * static_cast<double>(boxes.size())) cell_ *= 2.0;
    Fill();
  }

  void Visit(double reach, const std::function<void(std::size_t, std::size_t)>& visit) const {
    for (auto begin = entries_.begin(); begin != entries_.end();) {
      const auto end =
          std::find_if(begin, entries_.end(), [&](const Entry& e) { return e.Cell() != begin->Cell(); });
      for (auto a = begin; a != end; ++a)
        for (auto b = a + 1; b != end; ++b)
          if (AreNear(a->Box, b->Box, reach) && IsFirstCell(*a, b->Box)) visit(a->Box, b->Box);
      begin = end;
    }
  }

 private:
  std::int64_t CellOf(double place) const { return static_cast<std::int64_t>(std::floor(place / cell_)); }

  double CountEntries() const {
    double count = 0.0;
    for (const PlanBox& box : boxes_)
      count += (std::floor((box.High.x + half_) / cell_) - std::floor((box.Low.x - half_) / cell_) + 1.0) *
               (std::floor((box.High.y + half_) / cell_) - std::floor((box.Low.y - half_) / cell_) + 1.0);
    return count;
  }

  void Fill() {
    for (std::size_t k = 0; k < boxes_.size(); ++k)
      for (std::int64_t x = CellOf(boxes_[k].Low.x - half_); x <= CellOf(boxes_[k].High.x + half_); ++x)
        for (std::int64_t y = CellOf(boxes_[k].Low.y - half_); y <= CellOf(boxes_[k].High.y + half_); ++y)
          entries_.push_back({x, y, k});
    std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
      return std::tie(a.X, a.Y, a.Box) < std::tie(b.X, b.Y, b.Box);
    });
  }

  bool AreNear(std::size_t a, std::size_t b, double reach) const {
    const PlanBox& first = boxes_[a];
    const PlanBox& second = boxes_[b];
    return first.Low.x - reach <= second.High.x && second.Low.x - reach <= first.High.x &&
           first.Low.y - reach <= second.High.y && second.Low.y - reach <= first.High.y;
  }

  /// True in the lower left one of the cells that both boxes overlap: a pair is visited only there.
  bool IsFirstCell(const Entry& entry, std::size_t other) const {
    const glm::dvec2 low = glm::max(boxes_[entry.Box].Low, boxes_[other].Low) - half_;
    return CellOf(low.x) == entry.X && CellOf(low.y) == entry.Y;
  }

  const std::vector<PlanBox>& boxes_;
  double half_;
  double cell_ = 1.0;
  std::vector<Entry> entries_;
};

}  // namespace

void ForEachNearPair(const std::vector<PlanBox>& boxes, double reach,
                     const std::function<void(std::size_t, std::size_t)>& visit) {
  if (boxes.size() > 1) Grid(boxes, reach).Visit(reach, visit);
}

}  // namespace analysis
