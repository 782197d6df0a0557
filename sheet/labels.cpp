#include "sheet/labels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <map>

#include "analysis/pads.h"

namespace sheet {

namespace {

/// The distance from a label's text to the bend of its leader.
constexpr double kStub = 1.6;
const Stroke kLeader{.Width = 0.1, .Colour = Grey(0.45)};

double ColumnGap(double size) { return 0.7 * size; }

glm::dvec2 Direction(const glm::dvec2& from, const glm::dvec2& to) {
  return from == to ? glm::dvec2(0.0) : glm::normalize(to - from);
}

bool Contains(const analysis::PlanRectangle& pad, const glm::dvec2& point) {
  const glm::dvec2 from = point - pad.Centre;
  const glm::dvec2 across(-pad.Axis.y, pad.Axis.x);
  const double slack = 1e-6 * (pad.Half.x + pad.Half.y) + 1e-9;
  return std::fabs(glm::dot(from, pad.Axis)) <= pad.Half.x + slack &&
         std::fabs(glm::dot(from, across)) <= pad.Half.y + slack;
}

using PadOfBond = std::map<model::RecordPlace, analysis::PlanRectangle>;

PadOfBond PadsByBond(const model::Package& package) {
  PadOfBond pads;
  for (const analysis::Pad& pad : analysis::SubstratePads(package)) pads[WholeRecord(pad.Place)] = pad.Shape;
  return pads;
}

Label LabelOf(const DiagramWire& wire, const PadOfBond& pads, double millimetres) {
  Label label{.Number = wire.Number,
              .Lead = CleanText(wire.Lead),
              .Name = CleanText(wire.Name),
              .Anchor = wire.To * millimetres,
              .Towards = Direction(wire.From, wire.To)};
  const auto pad = pads.find(WholeRecord(wire.Place));
  if (pad == pads.end() || !Contains(pad->second, wire.To)) return label;
  const glm::dvec2 axis =
      glm::dot(pad->second.Axis, label.Towards) < 0.0 ? -pad->second.Axis : pad->second.Axis;
  label.Anchor = (pad->second.Centre + axis * pad->second.Half.x) * millimetres;
  label.Towards = axis;
  return label;
}

/// The pads of a package without wires, nearest to an edge of their die first.
std::vector<Label> PadLabels(const DiagramInputs& inputs) {
  struct Outer {
    double Depth;
    Label What;
  };
  std::vector<Outer> pads;
  const glm::dvec2 half = analysis::RectangleOf(analysis::BaseDieOf(inputs.Package)).Half;
  for (const analysis::Pad& pad : analysis::DiePads(inputs.Package)) {
    const glm::dvec2 room = half - glm::abs(pad.Shape.Centre);
    const glm::dvec2 out = room.x < room.y ? glm::dvec2(pad.Shape.Centre.x < 0.0 ? -1.0 : 1.0, 0.0)
                                           : glm::dvec2(0.0, pad.Shape.Centre.y < 0.0 ? -1.0 : 1.0);
    const std::size_t number = pad.Place.Number + 1 + (pad.IsStacked() ? inputs.Package.Bonds.Count() : 0);
    pads.push_back({std::min(room.x, room.y),
                    {.Number = number,
                     .Lead = {},
                     .Name = CleanText(analysis::BondOf(inputs.Package, pad).Name),
                     .Anchor = (pad.Shape.Centre + out * std::max(pad.Shape.Half.x, pad.Shape.Half.y)) *
                               inputs.Millimetres,
                     .Towards = out}});
  }
  std::stable_sort(pads.begin(), pads.end(),
                   [](const Outer& a, const Outer& b) { return a.Depth < b.Depth; });
  std::vector<Label> labels;
  labels.reserve(pads.size());
  for (Outer& pad : pads) labels.push_back(std::move(pad.What));
  return labels;
}

/// One text of a label in its column.
struct Cell {
  const char* Layer;
  std::string Words;
  double Start, Width;  ///< of its column, from the box outwards
  bool AtFarEnd;        ///< on the right and above: aligned with the column's far end, like numbers
};

void DrawLabel(const Label& label, const LabelPlace& place, const PlanFit& fit, Pencil& pencil) {
  const LabelColumns& columns = fit.Columns;
  const double gap = ColumnGap(columns.Size);
  const double lead = kStub + columns.Number + gap;
  const double name = lead + columns.Lead + (columns.Lead > 0.0 ? gap : 0.0);
  const std::array<Cell, 3> cells{
      Cell{layer::kNumbers, std::to_string(label.Number), kStub, columns.Number, true},
      Cell{layer::kNames, label.Lead, lead, columns.Lead, false},
      Cell{layer::kNames, label.Name, name, columns.Name, false}};
  const bool upright = place.At == Edge::Top || place.At == Edge::Bottom;
  const bool outwards = place.At == Edge::Right || place.At == Edge::Top;
  const glm::dvec2 knee = KneeOf(place, fit.Room);
  // Offset from the middle of the capitals to the base line.
  const double base = 0.36 * columns.Size;
  for (const Cell& cell : cells) {
    if (cell.Words.empty()) continue;
    const double along = outwards ? (cell.AtFarEnd ? cell.Start + cell.Width : cell.Start) : -cell.Start;
    const Align align = outwards != cell.AtFarEnd ? Align::Start : Align::End;
    pencil.Add(cell.Layer,
               Text{.At = upright ? knee + glm::dvec2(base, along) : knee + glm::dvec2(along, -base),
                    .Words = cell.Words,
                    .Size = columns.Size,
                    .Alignment = outwards ? align : Align::End,
                    .Upright = upright});
  }
}

}  // namespace

std::vector<Label> LabelsOf(const DiagramInputs& inputs) {
  if (inputs.Wires.empty()) return PadLabels(inputs);
  const PadOfBond pads = PadsByBond(inputs.Package);
  std::vector<Label> labels;
  for (const DiagramWire& wire : inputs.Wires) labels.push_back(LabelOf(wire, pads, inputs.Millimetres));
  return labels;
}

double LabelColumns::Depth() const {
  return kStub + Number + (Lead > 0.0 ? ColumnGap(Size) + Lead : 0.0) + ColumnGap(Size) + Name;
}

LabelColumns ColumnsFor(const std::vector<Label>& labels, double size) {
  LabelColumns columns{.Size = size};
  for (const Label& label : labels) {
    columns.Number = std::max(columns.Number, TextWidth(std::to_string(label.Number), size));
    columns.Lead = std::max(columns.Lead, TextWidth(label.Lead, size));
    columns.Name = std::max(columns.Name, TextWidth(label.Name, size));
  }
  return columns;
}

std::size_t DrawLabels(const std::vector<Label>& labels, const PlanFit& fit, Pencil& pencil) {
  std::vector<LabelWish> wishes;
  wishes.reserve(labels.size());
  for (const Label& label : labels) wishes.push_back({pencil.OnPaper(label.Anchor), label.Towards});
  const std::vector<LabelPlace> places = PlaceLabels(wishes, fit.Room);
  for (const LabelPlace& place : places) {
    const glm::dvec2 knee = KneeOf(place, fit.Room);
    const bool upright = place.At == Edge::Top || place.At == Edge::Bottom;
    const double out = place.At == Edge::Left || place.At == Edge::Bottom ? -1.0 : 1.0;
    const glm::dvec2 end =
        knee + (kStub - 0.5) * out * (upright ? glm::dvec2(0.0, 1.0) : glm::dvec2(1.0, 0.0));
    pencil.Add(layer::kNames, Line{wishes[place.Wish].Anchor, knee, kLeader});
    // The dot distinguishes a leader that begins here from one that passes under a lead.
    pencil.Add(layer::kNames, Circle{.Centre = wishes[place.Wish].Anchor, .Radius = 0.3, .Fill = Grey(0.25)});
    pencil.Add(layer::kNames, Line{knee, end, kLeader});
    DrawLabel(labels[place.Wish], place, fit, pencil);
  }
  return places.size();
}

}  // namespace sheet
