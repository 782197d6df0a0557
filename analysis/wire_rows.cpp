#include "analysis/wire_rows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "analysis/wire_loops.h"
#include "analysis/wire_measures.h"
#include "model/numbers.h"

namespace analysis {

namespace {

using analysis::PlanVector;
using model::BondRec;
using model::WireNameRec;

/// A value with as many digits as a single holds, which is what the text of it shows.
double Rounded(double value) {
  const std::string text = model::GeneralText(static_cast<float>(value));
  double rounded = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return rounded;
}

class WireMeasures {
 public:
  explicit WireMeasures(const model::Package& package) : package_(package) {
    for (const WireNameRec& entry : package.WireNames) entries_.emplace(entry.Name, &entry);
    for (const BondRec& bond : package.Bonds) pads_.insert_or_assign(bond.Name, Pad{&bond, false});
    // Like the sizes of its pads, the direction of a stitch comes from the last pad of the name.
    for (const BondRec& bond : package.SDBonds) pads_.insert_or_assign(bond.Name, Pad{&bond, true});
  }

  void AddWire(const DrawnWire& wire, const PackageLines& lines);

  std::vector<WireRow> Rows;

 private:
  struct Pad {
    const BondRec* Bond;
    bool Stacked;
  };

  void Add(const model::WirePath& loop, const std::array<std::string_view, 2>& names, const char* table,
           const Pad& pad, std::size_t line);
  double AngleOf(const model::WirePath& loop, const Pad& pad) const;

  const model::Package& package_;
  std::unordered_map<std::string_view, const WireNameRec*> entries_;
  std::unordered_map<std::string_view, Pad> pads_;
};

double WireMeasures::AngleOf(const model::WirePath& loop, const Pad& pad) const {
  const PlanVector start{double(loop.front().X), double(loop.front().Y)};
  const PlanVector along{double(loop.back().X) - start.X, double(loop.back().Y) - start.Y};
  const auto edge = [&]() -> PlanVector {
    if (pad.Bond != nullptr)
      if (const auto normal = analysis::NormalOf(pad.Bond->DieSide)) return *normal;
    if (!pad.Stacked)
      return NormalOfNearestEdge({{}, double(package_.CompW), double(package_.CompL), 0.0}, start);
    // The stacked die's place counts y downwards, and so its turn is clockwise.
    return NormalOfNearestEdge({{double(package_.SDXOffset), -double(package_.SDYOffset)},
                                double(package_.SDCompW),
                                double(package_.SDCompL),
                                -double(package_.SDRotation)},
                               start);
  };
  // Singles leave a few millionths of a degree.
  return std::round(analysis::AngleBetween(along, edge()) * 1e4) / 1e4;
}

void WireMeasures::Add(const model::WirePath& loop, const std::array<std::string_view, 2>& names,
                       const char* table, const Pad& pad, std::size_t line) {
  const double scale = double(package_.UnitScale);
  const auto entry = entries_.find(names[0]);
  WireRow row{.Name = std::string(names[0]), .OtherName = std::string(names[1]), .Table = table};
  if (entry != entries_.end()) {
    row.Tier = entry->second->Tier;
    row.NetType = entry->second->NetType;
  }
  row.PlanLength = Rounded(model::PlanLength(loop.front(), loop.back()) * scale);
  row.Length = Rounded(analysis::LoopLength(loop) * scale);
  row.Angle = AngleOf(loop, pad);
  row.StartHeight = Rounded(double(loop.front().Z) * scale);
  row.TopHeight = Rounded(analysis::TopOf(loop) * scale);
  row.EndHeight = Rounded(double(loop.back().Z) * scale);
  row.Line = line;
  Rows.push_back(std::move(row));
}

/// The row of a wire of the walk, whose record gives its pad and its line.
void WireMeasures::AddWire(const DrawnWire& wire, const PackageLines& lines) {
  const std::size_t number = wire.Place.Number;
  if (wire.Place.Table == model::RecordTable::Stitches) {
    const model::StitchRec& stitch = package_.Stitches[number];
    const auto pad = pads_.find(stitch.Pad1);
    return Add(wire.Path, {stitch.Pad1, stitch.Pad2}, "stitch",
               pad == pads_.end() ? Pad{nullptr, false} : pad->second, lines.Stitches[number]);
  }
  const bool stacked = wire.Place.Table == model::RecordTable::SDBonds;
  const BondRec& bond = (stacked ? package_.SDBonds : package_.Bonds)[number];
  Add(wire.Path, {bond.Name, {}}, stacked ? "stacked" : "base", {&bond, stacked},
      (stacked ? lines.SDBonds : lines.Bonds)[number].Wire);
}

}  // namespace

std::vector<WireRow> WireRows(const model::Package& package, const WiresAsked& asked,
                              const PackageLines& lines) {
  if (package.Technology != "WIRE_BOND") return {};
  WireMeasures measures(package);
  for (const DrawnWire& wire : DrawnWires(package, asked.settings, asked.shapes, asked.selection))
    measures.AddWire(wire, lines);
  return std::move(measures.Rows);
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
    group.Mean = Rounded(group.Total / double(group.Wires));
    group.Total = Rounded(group.Total);
    list.push_back(std::move(group));
  }
  return list;
}

}  // namespace analysis
