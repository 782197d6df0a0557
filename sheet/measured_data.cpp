#include "sheet/measured_data.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <optional>

#include "analysis/pads.h"
#include "model/side.h"
#include "model/text.h"
#include "sheet/paint_order.h"
#include "sheet/wire_looks.h"

namespace sheet {

namespace {

class Collector {
 public:
  explicit Collector(const MeasuredInputs& inputs) : in_(inputs) {}

  std::vector<Fact> Run() {
    AddDies();
    AddPads();
    AddWires();
    if (!in_.Rules.empty()) Add("Rules", in_.Rules), Add("Verdict", in_.Verdict);
    return std::move(facts_);
  }

 private:
  void Add(const char* label, const std::string& value) { facts_.push_back({label, value}); }

  std::string Number(double fileUnits) const {
    return Decimal(fileUnits * in_.NumberScale, DecimalsOf(in_.Unit));
  }
  std::string Length(double fileUnits) const { return Number(fileUnits) + " " + in_.Unit; }

  void AddDies() {
    const double unit = double(in_.Package.UnitScale);
    const auto add = [&](const char* label, double width, double length, double height) {
      Add(label, Number(width * unit) + " x " + Number(length * unit) + ", height " + Length(height * unit));
    };
    add("Base die", double(in_.Package.CompW), double(in_.Package.CompL), double(in_.Package.CompZ));
    if (in_.Package.SDCompW != 0.0F)
      add("Stacked die", double(in_.Package.SDCompW), double(in_.Package.SDCompL),
          double(in_.Package.SDCompZ));
  }

  void AddPads() {
    const std::vector<analysis::Pad> pads = analysis::DiePads(in_.Package);
    std::size_t stacked = 0;
    double opening = std::numeric_limits<double>::infinity();
    for (const analysis::Pad& pad : pads) {
      if (pad.IsStacked()) ++stacked;
      opening = std::min(opening, pad.Shape.ShorterSide());
    }
    Add("Die pads",
        std::to_string(pads.size()) +
            (stacked == 0 ? "" : ", of these " + std::to_string(stacked) + " on the stacked die"));
    if (!pads.empty()) Add("Smallest opening", Length(opening));
    if (const std::optional<double> pitch = analysis::SmallestPitch(in_.Package, pads))
      Add("Smallest pitch", Length(*pitch));
  }

  std::string EdgeOf(const DiagramWire& wire) const {
    if (wire.IsStitch()) return "stitch";
    const bool stacked = wire.Place.Table == model::RecordTable::SDBonds;
    const std::string& side = (stacked ? in_.Package.SDBonds : in_.Package.Bonds)[wire.Place.Number].DieSide;
    return model::SideOf(side) ? model::UpperCase(side) : "none";
  }

  template <class KeyOf>
  void AddCounts(const char* label, KeyOf&& keyOf) {
    std::map<std::string, std::size_t, NumbersInOrder> counts;
    for (const DiagramWire& wire : in_.Wires) ++counts[keyOf(wire)];
    std::string text;
    for (const auto& [key, count] : counts)
      text +=
          (text.empty() ? "" : ", ") + (key.empty() ? "none" : CleanText(key)) + ": " + std::to_string(count);
    Add(label, text);
  }

  void AddWires() {
    Add("Wires", std::to_string(in_.Wires.size()));
    if (in_.Wires.empty()) return;
    AddCounts("Wires by edge", [&](const DiagramWire& wire) { return EdgeOf(wire); });
    AddCounts("Wires by tier", [](const DiagramWire& wire) { return wire.Tier; });
    AddCounts("Wires by net type", [](const DiagramWire& wire) { return wire.NetType; });
    const auto shorter = [](const DiagramWire& a, const DiagramWire& b) { return a.Length < b.Length; };
    const auto [shortest, longest] = std::minmax_element(in_.Wires.begin(), in_.Wires.end(), shorter);
    double total = 0.0;
    for (const DiagramWire& wire : in_.Wires) total += wire.Length;
    const auto withNumber = [&](const DiagramWire& wire) {
      return Length(wire.Length) + ", wire " + std::to_string(wire.Number);
    };
    Add("Longest loop", withNumber(*longest));
    Add("Shortest loop", withNumber(*shortest));
    Add("All loops", Length(total));
    Add("Wire", in_.Settings.Material + ", " + Decimal(double(in_.Settings.WireDiameter), 3) + " mil (" +
                    Decimal(double(in_.Settings.WireDiameter) * 25.4, 1) + " um)");
    const bool stack = std::any_of(in_.Wires.begin(), in_.Wires.end(), [](const DiagramWire& wire) {
      return wire.Place.Table != model::RecordTable::Bonds;
    });
    Add("Loop height", Length(double(in_.Settings.BaseLoopHeight)) +
                           (stack ? ", stacked die " + Length(double(in_.Settings.StackLoopHeight)) : ""));
  }

  const MeasuredInputs& in_;
  std::vector<Fact> facts_;
};

}  // namespace

std::vector<Fact> MeasuredData(const MeasuredInputs& inputs) { return Collector(inputs).Run(); }

}  // namespace sheet
