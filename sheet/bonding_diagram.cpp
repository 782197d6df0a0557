#include "sheet/bonding_diagram.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <set>

#include "sheet/labels.h"
#include "sheet/paint_order.h"
#include "sheet/plan.h"
#include "sheet/plan_fit.h"
#include "sheet/plan_marks.h"
#include "sheet/side_text.h"
#include "sheet/title_block.h"
#include "sheet/wire_looks.h"
#include "sheet/wire_table.h"

namespace sheet {

namespace {

/// "1", or letters and "1".
bool IsLeadOne(const std::string& lead) {
  return lead.ends_with('1') &&
         std::all_of(lead.begin(), lead.end() - 1, [](unsigned char c) { return std::isalpha(c) != 0; });
}

/// The grey of wires that belong to other sheets.
constexpr Ink kOthers = Grey(0.62);

/// A plan that shows all wires, or some with the others in grey.
struct View {
  std::string Heading;
  std::function<bool(const DiagramWire&)> Shows;
};

std::vector<View> ViewsOf(const DiagramInputs& inputs) {
  std::vector<View> views;
  std::set<std::string, NumbersInOrder> kinds;
  const auto kindOf = [tier = inputs.Into == Split::Tier](const DiagramWire& wire) {
    return tier ? wire.Tier : wire.NetType;
  };
  if (inputs.Into != Split::None)
    for (const DiagramWire& wire : inputs.Wires) kinds.insert(kindOf(wire));
  const std::string what = inputs.Into == Split::Tier ? "tier" : "net type";
  views.reserve(kinds.size() + 1);
  for (const std::string& kind : kinds)
    views.push_back({kind.empty() ? "Wires of no " + what : "Wires of " + what + " " + CleanText(kind),
                     [kind, kindOf](const DiagramWire& wire) { return kindOf(wire) == kind; }});
  if (views.empty()) views.push_back({"", [](const DiagramWire&) { return true; }});
  return views;
}

class Composer {
 public:
  explicit Composer(const DiagramInputs& inputs)
      : in_(inputs),
        layout_(inputs.Paper),
        plan_(PlanOf(inputs.Package, inputs.Millimetres)),
        labels_(LabelsOf(inputs)),
        needs_(labels_),
        looks_(LooksOf(inputs.Wires)) {
    if (inputs.Table && !inputs.Wires.empty()) table_.emplace(inputs);
    if (plan_.empty() && inputs.Wires.empty()) return;
    extent_ = {glm::dvec2(1e300), glm::dvec2(-1e300)};
    for (const PlanShape& shape : plan_) IncludeShape(shape);
    for (const DiagramWire& wire : inputs.Wires)
      for (const glm::dvec2& end : {wire.From, wire.To}) extent_.Include(end * inputs.Millimetres);
  }

  Drawing Run() {
    fit_ = Fit();
    drawing_.Title = in_.Title.Title.empty() ? CleanText(in_.FileName) : CleanText(in_.Title.Title);
    drawing_.Width = in_.Paper.Width;
    drawing_.Height = in_.Paper.Height;
    drawing_.Scale = fit_.Scale;
    drawing_.Origin = fit_.Origin;
    AddLayers();
    const std::vector<View> views = ViewsOf(in_);
    const Box room = RoomOverStrip(layout_.Frame);
    const std::size_t textPages = TextPages(SideLines(views.back()), room);
    const std::size_t tablePages = table_ ? table_->Pages(room) : 0;
    SheetNumber number{1, views.size() + textPages + tablePages};
    for (const View& view : views) DrawView(view, number), ++number.This;
    for (std::size_t k = 0; k < textPages; ++k, ++number.This) DrawTextPage(SideLines(views.back()), number);
    for (std::size_t k = 0; k < tablePages; ++k, ++number.This) {
      Pencil pencil(drawing_, drawing_.Pages.emplace_back());
      table_->Draw(k, DrawStrip(in_, number, layout_.Frame, pencil), pencil);
    }
    return std::move(drawing_);
  }

 private:
  /// A PDF page ends at 200 inches.
  static constexpr double kWidestPaper = 5080.0;

  PlanFit Fit() const {
    const std::optional<PlanFit> fit = FitOn(in_.Paper);
    if (fit) return *fit;
    const bool planFits = FitPlanOn(in_.Paper).has_value();
    const std::string what = std::string(planFits ? "the table" : "the plan") + " does not fit on " +
                             (in_.Paper.Name.empty() ? "this sheet" : "a sheet " + in_.Paper.Name) +
                             (in_.Scale && !planFits ? " at " + Decimal(*in_.Scale, 3) + " : 1" : "") +
                             "; use --sheet ";
    for (const Paper& paper : NamedPapers())
      if (FitOn(paper)) throw DoesNotFit(what + paper.Name, paper);
    Paper paper{"", kWidestPaper, kWidestPaper};
    if (!FitOn(paper))
      throw DoesNotFit(std::string(planFits ? "the table" : "the plan") +
                       " is larger than any sheet; give a smaller --scale, or check --unit");
    const int width = LeastSide(paper, &Paper::Width);
    const int height = LeastSide(paper, &Paper::Height);
    throw DoesNotFit(what + std::to_string(width) + "x" + std::to_string(height), paper);
  }

  /// Shortens one side of a paper as far as everything still fits.
  /// Units  whole tens of millimetres
  int LeastSide(Paper& paper, double Paper::*side) const {
    int small = 0, large = static_cast<int>(kWidestPaper) / 10;
    while (large - small > 1) {
      const int middle = (small + large) / 2;
      paper.*side = 10.0 * middle;
      (FitOn(paper) ? large : small) = middle;
    }
    paper.*side = 10.0 * large;
    return 10 * large;
  }

  std::optional<PlanFit> FitPlanOn(const Paper& paper) const {
    const SheetLayout layout(paper);
    if (layout.Side.Size().y < 10.0) return std::nullopt;
    return FitPlan(needs_, extent_, layout.Plan, in_.Scale);
  }

  /// The plan's fit on a paper that also has room for the table.
  std::optional<PlanFit> FitOn(const Paper& paper) const {
    if (table_ && !table_->FitsIn(RoomOverStrip(FrameOf(paper)))) return std::nullopt;
    return FitPlanOn(paper);
  }

  void AddLayers() {
    // Leaders run under leads and pads, but over a die, whose face is white.
    drawing_.Layers = {layer::kPaddle, layer::kRings, layer::kDie,
                       layer::kNames,  layer::kLeads, layer::kDiePads};
    for (const auto& [name, look] : looks_) drawing_.Layers.push_back(name);
    for (const char* name : {layer::kNumbers, layer::kFrame, layer::kTable, layer::kFindings})
      drawing_.Layers.emplace_back(name);
  }

  /// The label of the wire to lead 1; null when the whole package has no such wire or several.
  const Label* LeadOne() const {
    std::ptrdiff_t count = 0;
    for (const auto* bonds : {&in_.Package.Bonds, &in_.Package.SDBonds})
      count += std::count_if(bonds->begin(), bonds->end(),
                             [](const model::BondRec& bond) { return IsLeadOne(bond.Lead); });
    if (count != 1) return nullptr;
    const auto label = std::find_if(labels_.begin(), labels_.end(),
                                    [](const Label& candidate) { return IsLeadOne(candidate.Lead); });
    return label == labels_.end() ? nullptr : &*label;
  }

  void IncludeShape(const PlanShape& shape) {
    if (const auto* const circle = std::get_if<Circle>(&shape.What)) {
      extent_.Include(circle->Centre - circle->Radius);
      extent_.Include(circle->Centre + circle->Radius);
    } else {
      for (const std::vector<glm::dvec2>& outline : std::get<Area>(shape.What).Outlines)
        for (const glm::dvec2& point : outline) extent_.Include(point);
    }
  }

  static void DrawShape(const PlanShape& shape, Pencil& pencil) {
    if (const auto* const circle = std::get_if<Circle>(&shape.What)) {
      Circle onPaper = *circle;
      onPaper.Centre = pencil.OnPaper(circle->Centre);
      onPaper.Radius *= pencil.On().Scale;
      return pencil.Add(shape.Layer, onPaper);
    }
    Area onPaper = std::get<Area>(shape.What);
    for (std::vector<glm::dvec2>& outline : onPaper.Outlines)
      for (glm::dvec2& point : outline) point = pencil.OnPaper(point);
    pencil.Add(shape.Layer, std::move(onPaper));
  }

  void DrawView(const View& view, const SheetNumber& number) {
    Page& page = drawing_.Pages.emplace_back();
    Pencil pencil(drawing_, page);
    pencil.Frame(layer::kFrame, layout_.Frame, 0.7);
    for (const PlanShape& shape : plan_) DrawShape(shape, pencil);
    std::vector<Label> shown;
    DrawWires(view, pencil);
    if (const Label* lead = LeadOne()) DrawLeadMark(*lead, page, pencil);
    for (std::size_t k = 0; k < labels_.size(); ++k)
      if (in_.Wires.empty() || view.Shows(in_.Wires[k])) shown.push_back(labels_[k]);
    const std::size_t all = shown.size();
    // With fewer labels the text may be larger.
    const PlanFit fit = FitPlan(LabelNeeds(shown), extent_, layout_.Plan, fit_.Scale).value_or(fit_);
    if (in_.Wires.empty()) shown.resize(std::min(all, fit.Room.Capacity()));
    const std::size_t labelled = DrawLabels(shown, fit, pencil);
    DrawDieMarks(in_, page, pencil);
    DrawScaleBar(in_, {layout_.ScaleBar.Low + glm::dvec2(1.0, 1.5), layout_.ScaleBar.High}, pencil);
    if (labelled < all) TellFewerLabels(labelled, all, pencil);
    if (!view.Heading.empty())
      pencil.Add(layer::kFrame, Text{.At = {layout_.Frame.Low.x + 5.0, layout_.Frame.High.y - 7.5},
                                     .Words = view.Heading,
                                     .Size = 3.5,
                                     .Bold = true});
    continued_ = DrawSideText(SideLines(view), 0, layout_.Side, pencil);
    DrawTitleBlock(in_, drawing_, number, layout_.Frame, layout_.BlockWidth, pencil);
  }

  void TellFewerLabels(std::size_t labelled, std::size_t of, Pencil& pencil) const {
    const std::string things = in_.Wires.empty() ? " die pads" : " wires";
    const std::string words = std::to_string(labelled) + " of " + std::to_string(of) + things +
                              " are labelled; there is no room for more" +
                              (in_.Table && !in_.Wires.empty() ? ". The table lists all." : ".");
    pencil.Add(layer::kFrame, Text{.At = {layout_.ScaleBar.High.x, layout_.ScaleBar.Low.y + 1.0},
                                   .Words = words,
                                   .Size = 2.3,
                                   .Alignment = Align::End});
  }

  void DrawWires(const View& view, Pencil& pencil) const {
    const double width = in_.Wires.size() < 150 ? 0.25 : in_.Wires.size() < 600 ? 0.18 : 0.1;
    for (const DiagramWire& wire : in_.Wires) {
      const Line line{pencil.OnPaper(wire.From * in_.Millimetres), pencil.OnPaper(wire.To * in_.Millimetres)};
      const std::string wireLayer = LayerOf(wire);
      const WireLook look = view.Shows(wire) ? looks_.at(wireLayer) : WireLook{.Colour = kOthers};
      pencil.Add(wireLayer, Line{line.From, line.To, {width, look.Colour, look.Pattern}});
      if (wire.Offends && view.Shows(wire))
        pencil.Add(layer::kFindings,
                   Line{line.From, line.To, {.Width = 2.0 * width, .Colour = {0.85, 0.0, 0.0}}});
    }
  }

  std::vector<SideLine> SideLines(const View& view) const {
    std::vector<SideLine> lines;
    lines.push_back({.Heading = true, .Words = "Measured"});
    const double width = layout_.Side.Size().x;
    for (const Fact& fact : in_.Facts) AddFact(fact, width, lines);
    const std::vector<SideLine> legend = LegendOf(view);
    if (!legend.empty()) lines.push_back({.Heading = true, .Words = "Legend"});
    lines.insert(lines.end(), legend.begin(), legend.end());
    AddParagraphs("Findings", in_.Findings, width, lines);
    AddParagraphs("Notes", in_.Notes, width, lines);
    return lines;
  }

  std::vector<SideLine> LegendOf(const View& view) const {
    std::vector<SideLine> lines;
    if (!labels_.empty())
      lines.push_back({.Words = std::string("labels, from the plan outwards: number") +
                                (needs_.Columns.Lead > 0.0 ? ", lead" : "") +
                                (in_.Wires.empty() ? ", pad" : ", net")});
    if (LeadOne() != nullptr) lines.push_back({.Before = Sign::Lead1, .Words = "lead 1"});
    if (HasDieMarks(in_, fit_.Scale))
      lines.push_back({.Before = Sign::DieCorner, .Words = "lower left corner of the base die"});
    std::set<std::string, NumbersInOrder> shown;
    for (const DiagramWire& wire : in_.Wires)
      if (view.Shows(wire)) shown.insert(LayerOf(wire));
    if (looks_.size() > 1)
      for (const std::string& name : shown)
        lines.push_back({.Before = Sign::Wire,
                         .Colour = looks_.at(name).Colour,
                         .Pattern = looks_.at(name).Pattern,
                         .Words = MeaningOf(name)});
    const auto isHidden = [&](const DiagramWire& wire) { return !view.Shows(wire); };
    if (std::any_of(in_.Wires.begin(), in_.Wires.end(), isHidden))
      lines.push_back({.Before = Sign::OtherWire, .Colour = kOthers, .Words = "wires of the other sheets"});
    const auto isRed = [&](const DiagramWire& wire) { return wire.Offends && view.Shows(wire); };
    if (std::any_of(in_.Wires.begin(), in_.Wires.end(), isRed))
      lines.push_back({.Before = Sign::Offender, .Colour = {0.85, 0.0, 0.0}, .Words = "wire with a finding"});
    return lines;
  }

  /// The number of further sheets for lines that do not fit beside the plan.
  std::size_t TextPages(const std::vector<SideLine>& lines, const Box& room) const {
    Drawing drawing;
    drawing.Layers = drawing_.Layers;
    Page page;
    Pencil pencil(drawing, page);
    std::size_t next = DrawSideText(lines, 0, layout_.Side, pencil);
    std::size_t pages = 0;
    for (; next < lines.size(); ++pages) next = DrawTextColumns(lines, next, room, pencil);
    return pages;
  }

  std::size_t DrawTextColumns(const std::vector<SideLine>& lines, std::size_t next, const Box& room,
                              Pencil& pencil) const {
    const Box inside = room.Inset(6.0);
    const double width = layout_.Side.Size().x;
    for (double left = inside.Low.x; left + width <= inside.High.x && next < lines.size();
         left += width + 10.0)
      next = DrawSideText(lines, next, {{left, inside.Low.y}, {left + width, inside.High.y}}, pencil);
    return next;
  }

  void DrawTextPage(const std::vector<SideLine>& lines, const SheetNumber& number) {
    Pencil pencil(drawing_, drawing_.Pages.emplace_back());
    continued_ = DrawTextColumns(lines, continued_, DrawStrip(in_, number, layout_.Frame, pencil), pencil);
  }

  const DiagramInputs& in_;
  SheetLayout layout_;
  std::vector<PlanShape> plan_;
  std::vector<Label> labels_;
  LabelNeeds needs_;
  WireLooks looks_;  ///< of the layers with wires
  std::optional<WireTable> table_;
  Box extent_;  ///< of the plan, millimetres in the package
  PlanFit fit_;
  std::size_t continued_ = 0;  ///< the first side line that is not drawn yet
  Drawing drawing_;
};

}  // namespace

Drawing BondingDiagram(const DiagramInputs& inputs) { return Composer(inputs).Run(); }

}  // namespace sheet
