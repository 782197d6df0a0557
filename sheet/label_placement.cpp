#include "sheet/label_placement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <limits>

namespace sheet {

namespace {

/// The edges in an order in which neighbours share a corner: left and top, top and right, right and bottom,
/// bottom and left.
constexpr std::array<Edge, 4> kAround{Edge::Left, Edge::Top, Edge::Right, Edge::Bottom};

bool IsUpright(Edge edge) { return edge == Edge::Top || edge == Edge::Bottom; }

double LowOf(Edge edge, const LabelRoom& room) { return IsUpright(edge) ? room.Low.x : room.Low.y; }
double HighOf(Edge edge, const LabelRoom& room) { return IsUpright(edge) ? room.High.x : room.High.y; }

std::size_t CapacityOf(Edge edge, const LabelRoom& room) {
  const double count = (HighOf(edge, room) - LowOf(edge, room)) / room.Pitch;
  return count > 0.0 ? static_cast<std::size_t>(count + 1e-9) : 0;
}

/// A wish with its target: the point where its leader would meet the edge without other labels.
struct Target {
  std::size_t Wish = 0;
  double Along = 0.0;
};

/// The point where the ray from the anchor leaves the box.
LabelPlace Leaving(const LabelWish& wish, const LabelRoom& room) {
  const glm::dvec2 middle = (room.Low + room.High) / 2.0;
  glm::dvec2 towards = wish.Towards;
  if (glm::dot(towards, towards) == 0.0) towards = wish.Anchor - middle;
  if (glm::dot(towards, towards) == 0.0) towards = {0.0, 1.0};
  const double infinity = std::numeric_limits<double>::infinity();
  const auto reach = [&](double from, double step, double low, double high) {
    if (step == 0.0) return infinity;
    return std::max(((step > 0.0 ? high : low) - from) / step, 0.0);
  };
  const double x = reach(wish.Anchor.x, towards.x, room.Low.x, room.High.x);
  const double y = reach(wish.Anchor.y, towards.y, room.Low.y, room.High.y);
  if (x < y) return {0, towards.x < 0.0 ? Edge::Left : Edge::Right, wish.Anchor.y + x * towards.y};
  return {0, towards.y < 0.0 ? Edge::Bottom : Edge::Top, wish.Anchor.x + y * towards.x};
}

/// Places in the order of the targets, at least `pitch` apart, with the least sum of squared moves. After
/// subtracting the pitch this is isotonic regression, solved by pooling adjacent violators.
std::vector<double> Spread(const std::vector<Target>& targets, double low, double high, double pitch) {
  struct Pool {
    double Sum;
    std::size_t Count;
    double Mean() const { return Sum / static_cast<double>(Count); }
  };
  std::vector<Pool> pools;
  for (std::size_t k = 0; k < targets.size(); ++k) {
    pools.push_back({targets[k].Along - static_cast<double>(k) * pitch, 1});
    while (pools.size() > 1 && pools[pools.size() - 2].Mean() >= pools.back().Mean()) {
      pools[pools.size() - 2].Sum += pools.back().Sum;
      pools[pools.size() - 2].Count += pools.back().Count;
      pools.pop_back();
    }
  }
  const double first = low + pitch / 2.0;
  const double last = high - pitch / 2.0 - static_cast<double>(targets.size() - 1) * pitch;
  std::vector<double> places;
  for (const Pool& pool : pools)
    for (std::size_t k = 0; k < pool.Count; ++k)
      places.push_back(std::clamp(pool.Mean(), first, std::max(first, last)) +
                       static_cast<double>(places.size()) * pitch);
  return places;
}

double Side(const glm::dvec2& a, const glm::dvec2& b, const glm::dvec2& point) {
  return (b.x - a.x) * (point.y - a.y) - (b.y - a.y) * (point.x - a.x);
}

bool Cross(const glm::dvec2& a, const glm::dvec2& b, const glm::dvec2& c, const glm::dvec2& d) {
  return Side(a, b, c) * Side(a, b, d) < 0.0 && Side(c, d, a) * Side(c, d, b) < 0.0;
}

class Placement {
 public:
  Placement(const std::vector<LabelWish>& wishes, const LabelRoom& room) : wishes_(wishes), room_(room) {}

  std::vector<LabelPlace> Run() {
    for (const std::size_t wish : Chosen()) {
      const LabelPlace place = Leaving(wishes_[wish], room_);
      Row(place.At).push_back({wish, place.Along});
    }
    for (const Edge edge : kAround)
      std::sort(Row(edge).begin(), Row(edge).end(), [](const Target& a, const Target& b) {
        return a.Along != b.Along ? a.Along < b.Along : a.Wish < b.Wish;
      });
    Balance();
    std::vector<LabelPlace> places;
    for (const Edge edge : kAround) {
      std::vector<LabelPlace> row = RowOf(edge);
      Uncross(row);
      places.insert(places.end(), row.begin(), row.end());
    }
    return places;
  }

 private:
  std::vector<Target>& Row(Edge edge) { return rows_[static_cast<std::size_t>(edge)]; }

  /// All wishes, or as many as fit, spread evenly around the plan.
  std::vector<std::size_t> Chosen() const {
    std::vector<std::size_t> order(wishes_.size());
    for (std::size_t k = 0; k < order.size(); ++k) order[k] = k;
    const std::size_t most = room_.Capacity();
    if (order.size() <= most) return order;
    std::vector<double> angles;
    const glm::dvec2 middle = (room_.Low + room_.High) / 2.0;
    for (const LabelWish& wish : wishes_)
      angles.push_back(std::atan2(wish.Anchor.y - middle.y, wish.Anchor.x - middle.x));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return angles[a] < angles[b]; });
    std::vector<std::size_t> chosen;
    for (std::size_t k = 0; k < most; ++k) chosen.push_back(order[k * order.size() / most]);
    return chosen;
  }

  /// Moves labels of a full edge around a corner to the neighbouring edge with more room.
  void Balance() {
    for (std::size_t turn = 0; turn < 3 * kAround.size(); ++turn) {
      const std::size_t here = turn % kAround.size();
      const Edge edge = kAround[here];
      while (Row(edge).size() > CapacityOf(edge, room_)) {
        const Edge before = kAround[(here + 3) % 4];
        const Edge after = kAround[(here + 1) % 4];
        Move(edge, Spare(after) > Spare(before) ? after : before);
      }
    }
  }

  double Spare(Edge edge) {
    return static_cast<double>(CapacityOf(edge, room_)) - static_cast<double>(Row(edge).size());
  }

  /// Moves the label nearest to two edges' common corner from one edge to the other.
  void Move(Edge from, Edge to) {
    const bool fromHigh = to == Edge::Top || to == Edge::Right;
    const bool toHigh = from == Edge::Top || from == Edge::Right;
    std::vector<Target>& row = Row(from);
    Target target = fromHigh ? row.back() : row.front();
    row.erase(fromHigh ? row.end() - 1 : row.begin());
    target.Along = toHigh ? HighOf(to, room_) : LowOf(to, room_);
    Row(to).insert(toHigh ? Row(to).end() : Row(to).begin(), target);
  }

  std::vector<LabelPlace> RowOf(Edge edge) {
    const std::vector<Target>& targets = Row(edge);
    std::vector<LabelPlace> row;
    if (targets.empty()) return row;
    const std::vector<double> places = Spread(targets, LowOf(edge, room_), HighOf(edge, room_), room_.Pitch);
    for (std::size_t k = 0; k < targets.size(); ++k) row.push_back({targets[k].Wish, edge, places[k]});
    return row;
  }

  /// Swaps neighbours whose leaders cross, until none cross or the limit of rounds is reached.
  void Uncross(std::vector<LabelPlace>& row) const {
    bool again = true;
    for (int pass = 0; again && pass < 40; ++pass) {
      again = false;
      for (std::size_t k = 0; k + 1 < row.size(); ++k) {
        if (!Cross(wishes_[row[k].Wish].Anchor, KneeOf(row[k], room_), wishes_[row[k + 1].Wish].Anchor,
                   KneeOf(row[k + 1], room_)))
          continue;
        std::swap(row[k].Wish, row[k + 1].Wish);
        again = true;
      }
    }
  }

  const std::vector<LabelWish>& wishes_;
  const LabelRoom& room_;
  std::array<std::vector<Target>, 4> rows_;
};

}  // namespace

std::size_t LabelRoom::Capacity() const {
  std::size_t count = 0;
  for (const Edge edge : kAround) count += CapacityOf(edge, *this);
  return count;
}

std::vector<LabelPlace> PlaceLabels(const std::vector<LabelWish>& wishes, const LabelRoom& room) {
  return Placement(wishes, room).Run();
}

glm::dvec2 KneeOf(const LabelPlace& place, const LabelRoom& room) {
  if (IsUpright(place.At)) return {place.Along, place.At == Edge::Top ? room.High.y : room.Low.y};
  return {place.At == Edge::Left ? room.Low.x : room.High.x, place.Along};
}

}  // namespace sheet
