#include "analysis/lengths.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "analysis/die_edges.h"
#include "model/numbers.h"

namespace analysis {

namespace {

using model::BondRec;
using model::RecordTable;
using model::WireNameRec;

class Measures {
 public:
  explicit Measures(const model::Package& package) : package_(package) {
    for (const WireNameRec& entry : package.WireNames) entries_.emplace(entry.Name, &entry);
    for (const BondRec& bond : package.Bonds) pads_.insert_or_assign(bond.Name, Pad{&bond, false});
    // Like the sizes of its pads, the direction of a stitch comes from the last pad of the name.
    for (const BondRec& bond : package.SDBonds) pads_.insert_or_assign(bond.Name, Pad{&bond, true});
  }

  WireRow RowOf(const WireLoop& loop) const;

 private:
  struct Pad {
    const BondRec* Bond = nullptr;  ///< null for a stitch from no pad
    bool Stacked = false;
  };

  Pad PadOf(const WireLoop& loop) const;
  double AngleOf(const WireLoop& loop) const;

  const model::Package& package_;
  std::unordered_map<std::string_view, const WireNameRec*> entries_;
  std::unordered_map<std::string_view, Pad> pads_;
};

Measures::Pad Measures::PadOf(const WireLoop& loop) const {
  if (loop.Place.Table == RecordTable::Bonds) return {&package_.Bonds[loop.Place.Number], false};
  if (loop.Place.Table == RecordTable::SDBonds) return {&package_.SDBonds[loop.Place.Number], true};
  const auto pad = pads_.find(loop.Pads[0]);
  return pad == pads_.end() ? Pad{} : pad->second;
}

double Measures::AngleOf(const WireLoop& loop) const {
  const Pad pad = PadOf(loop);
  const glm::dvec2 start(loop.Points.front());
  const glm::dvec2 along = glm::dvec2(loop.Points.back()) - start;
  const auto side = pad.Bond == nullptr ? std::nullopt : model::SideOf(pad.Bond->DieSide);
  const glm::dvec2 edge =
      side ? NormalOf(*side)
           : NormalOfNearestEdge(pad.Stacked ? StackedDieOf(package_) : BaseDieOf(package_), start);
  // Single precision leaves errors of a few millionths of a degree.
  return std::round(AngleBetween(along, edge) * 1e4) / 1e4;
}

WireRow Measures::RowOf(const WireLoop& loop) const {
  WireRow row{.Place = loop.Place, .Name = loop.Pads[0]};
  if (loop.Place.Table == RecordTable::Stitches) row.OtherName = loop.Pads[1];
  if (const auto entry = entries_.find(row.Name); entry != entries_.end()) {
    row.Tier = entry->second->Tier;
    row.NetType = entry->second->NetType;
  }
  const glm::dvec3& start = loop.Points.front();
  const glm::dvec3& end = loop.Points.back();
  row.PlanLength = model::SevenDigits(PlanLengthOf(loop));
  row.Length = model::SevenDigits(LengthOf(loop));
  row.Angle = AngleOf(loop);
  row.StartHeight = model::SevenDigits(start.z);
  row.TopHeight = model::SevenDigits(TopOf(loop));
  row.EndHeight = model::SevenDigits(end.z);
  return row;
}

}  // namespace

std::vector<WireRow> MeasureLengths(const model::Package& package, const std::vector<WireLoop>& loops) {
  const Measures measures(package);
  std::vector<WireRow> rows;
  rows.reserve(loops.size());
  for (const WireLoop& loop : loops)
    model::AtRecord(package, loop.Place, [&] { rows.push_back(measures.RowOf(loop)); });
  return rows;
}

std::vector<WireGroup> GroupsOf(const std::vector<WireRow>& rows) {
  std::map<std::pair<std::string, std::string>, WireGroup> groups;
  for (const WireRow& row : rows) {
    WireGroup& group = groups[{row.Tier, row.NetType}];
    group.Shortest = group.Wires == 0 ? row.Length : std::min(group.Shortest, row.Length);
    group.Longest = std::max(group.Longest, row.Length);
    group.LargestAngle = std::max(group.LargestAngle, row.Angle);
    group.Total += row.Length;
    ++group.Wires;
  }
  std::vector<WireGroup> list;
  for (auto& [key, group] : groups) {
    std::tie(group.Tier, group.NetType) = key;
    group.Mean = model::SevenDigits(group.Total / double(group.Wires));
    group.Total = model::SevenDigits(group.Total);
    list.push_back(std::move(group));
  }
  return list;
}

}  // namespace analysis
