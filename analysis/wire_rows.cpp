#include "analysis/wire_rows.h"

#include <algorithm>
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
  WireMeasures(const model::Package& package, std::vector<DrawnWire> wires)
      : package_(package), wires_(std::move(wires)) {
    for (const WireNameRec& entry : package.WireNames) entries_.emplace(entry.Name, &entry);
    for (const BondRec& bond : package.Bonds) pads_.insert_or_assign(bond.Name, Pad{&bond, false});
    // Like the sizes of its pads, the direction of a stitch comes from the last pad of the name.
    for (const BondRec& bond : package.SDBonds) pads_.insert_or_assign(bond.Name, Pad{&bond, true});
  }

  void AddBonds(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines,
                const render::WireSelection& selection, bool stacked);
  void AddStitches(const std::vector<std::size_t>& lines, const render::WireSelection& selection);

  std::vector<WireRow> Rows;

 private:
  struct Pad {
    const BondRec* Bond;
    bool Stacked;
  };

  void Add(std::string_view name, std::string_view otherName, const char* table, const Pad& pad,
           std::size_t line);
  double AngleOf(const model::WirePath& loop, const Pad& pad) const;

  const model::Package& package_;
  std::vector<DrawnWire> wires_;  ///< in the order of the rows, measured as they show
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

void WireMeasures::Add(std::string_view name, std::string_view otherName, const char* table, const Pad& pad,
                       std::size_t line) {
  const model::WirePath& loop = wires_[Rows.size()].Path;
  const double scale = double(package_.UnitScale);
  const auto entry = entries_.find(name);
  WireRow row{.Name = std::string(name), .OtherName = std::string(otherName), .Table = table};
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

void WireMeasures::AddBonds(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines,
                            const render::WireSelection& selection, bool stacked) {
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    if (model::HasWire(bonds[i]) && selection.Draws(bonds[i].Name))
      Add(bonds[i].Name, {}, stacked ? "stacked" : "base", {&bonds[i], stacked}, lines[i].Wire);
  }
}

void WireMeasures::AddStitches(const std::vector<std::size_t>& lines,
                               const render::WireSelection& selection) {
  std::size_t i = 0;
  for (const WireNameRec& entry : package_.WireNames) {
    // The list has the stitches in their table's order, between the wires.
    if (i == package_.Stitches.Count()) break;
    if (package_.Stitches[i].Name != entry.Name + ":" + entry.Name2) continue;
    const auto pad = pads_.find(entry.Name);
    if (selection.Draws(package_.Stitches[i].Name))
      Add(entry.Name, entry.Name2, "stitch", pad == pads_.end() ? Pad{nullptr, false} : pad->second,
          lines[i]);
    ++i;
  }
}

}  // namespace

std::vector<WireRow> WireRows(model::Package& package, const WiresAsked& asked, const PackageLines& lines) {
  if (package.Technology != "WIRE_BOND") return {};
  WireMeasures measures(package, DrawnWires(package, asked.settings, asked.shapes, asked.selection));
  measures.AddBonds(package.Bonds, lines.Bonds, asked.selection, false);
  measures.AddBonds(package.SDBonds, lines.SDBonds, asked.selection, true);
  measures.AddStitches(lines.Stitches, asked.selection);
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
