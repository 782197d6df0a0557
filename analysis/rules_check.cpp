#include "analysis/rules_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <glm/geometric.hpp>
#include <map>
#include <utility>

#include "analysis/clearance.h"
#include "analysis/lengths.h"
#include "analysis/near_loops.h"
#include "analysis/near_pairs.h"
#include "analysis/pads.h"
#include "analysis/rule_things.h"
#include "analysis/segment_tree.h"
#include "model/side.h"

namespace analysis {

namespace {

/// A value this close to its limit keeps it.
constexpr double kSlackMillimetres = 1e-5;
constexpr double kSlackDegrees = 1e-3;

PlanBox BoxOf(const PlanRectangle& shape) {
  const std::array<glm::dvec2, 4> corners = shape.Corners();
  PlanBox box{corners[0], corners[0]};
  for (const glm::dvec2& corner : corners) {
    box.Low = glm::min(box.Low, corner);
    box.High = glm::max(box.High, corner);
  }
  return box;
}

/// The limit in file units; degrees and numbers of wires stay.
double LimitOf(const Rule& rule, const RuleInputs& inputs) {
  switch (rule.Unit) {
    case LimitUnit::Length:
      return rule.Limit * rule.Length->Millimetres / inputs.Millimetres;
    case LimitUnit::DieHeight:
      return rule.Limit * std::fabs(double(inputs.Package.CompZ)) * double(inputs.Package.UnitScale);
    case LimitUnit::None:
    case LimitUnit::Degree:
      break;
  }
  return rule.Limit;
}

/// Two wires and the clearance of their surfaces.
struct WirePair {
  std::size_t First = 0, Second = 0;
  double Gap = 0.0;
};

class RulesCheck {
 public:
  RulesCheck(const RuleSet& set, const RuleInputs& inputs)
      : set_(set),
        in_(inputs),
        rows_(MeasureLengths(inputs.Package, inputs.Loops)),
        things_(RuleThingsOf(inputs.Package, inputs.Lines, rows_)),
        numbered_(LoopsByNumber(inputs.Loops, inputs.Nets)) {}

  RulesReport Run() {
    for (rule_ = 0; rule_ < set_.Rules.size(); ++rule_) {
      measured_ = false;
      limit_ = LimitOf(set_.Rules[rule_], in_);
      Check(set_.Rules[rule_]);
      if (!measured_) report_.Unmeasured.push_back(rule_);
    }
    return std::move(report_);
  }

 private:
  void Check(const Rule& rule);
  void CheckWires(const Rule& rule, const std::function<double(std::size_t)>& valueOf);
  void CheckLeads(const Rule& rule, const std::function<double(const PlanRectangle&)>& valueOf);
  void CheckPadSizes(const Rule& rule);
  void CheckPadsToEdge(const Rule& rule);
  void CheckCrossings(const Rule& rule);
  void CheckWireGaps(const Rule& rule);
  void CheckLeadGaps(const Rule& rule);
  void CheckPadPairs(const Rule& rule);
  void CheckPadRow(const Rule& rule, const std::vector<std::size_t>& row);
  void CheckWiresOnLeads(const Rule& rule);

  Segment InPlan(std::size_t wire) const;
  bool AnyPairOfWires(const Rule& rule) const;
  const std::vector<WirePair>& WirePairs();
  double Slack() const { return kSlackMillimetres / in_.Millimetres; }
  void Report(const RuleThing& thing, std::optional<double> value, std::vector<std::size_t> wires = {});
  void ReportPair(const RuleThing& a, const RuleThing& b, std::optional<double> value,
                  std::vector<std::size_t> wires = {});

  const RuleSet& set_;
  const RuleInputs& in_;
  std::vector<WireRow> rows_;
  RuleThings things_;
  std::vector<LoopOfNet> numbered_;
  std::optional<std::vector<WirePair>> pairs_;  ///< all pairs as near as the widest limit for gaps
  RulesReport report_;
  // State for the rule being checked:
  std::size_t rule_ = 0;
  double limit_ = 0.0;
  bool measured_ = false;
};

void RulesCheck::Report(const RuleThing& thing, std::optional<double> value, std::vector<std::size_t> wires) {
  report_.Remarks.push_back({.Rule = rule_,
                             .Place = thing.Place,
                             .Line = thing.Line,
                             .Value = value,
                             .Limit = value ? std::optional(limit_) : std::nullopt,
                             .Wires = std::move(wires)});
}

void RulesCheck::ReportPair(const RuleThing& a, const RuleThing& b, std::optional<double> value,
                            std::vector<std::size_t> wires) {
  const bool inOrder = a.Line <= b.Line;
  Report(inOrder ? b : a, value, std::move(wires));
  report_.Remarks.back().Other = (inOrder ? a : b).Place;
  report_.Remarks.back().OtherLine = (inOrder ? a : b).Line;
}

void RulesCheck::Check(const Rule& rule) {
  switch (rule.Name) {
    case RuleName::MaxLength:
    case RuleName::MinLength:
      return CheckWires(rule, [&](std::size_t wire) {
        return rule.Plan ? PlanLengthOf(in_.Loops[wire]) : LengthOf(in_.Loops[wire]);
      });
    case RuleName::MaxAngle:
      return CheckWires(rule, [&](std::size_t wire) { return rows_[wire].Angle; });
    case RuleName::MaxLoopHeight:
      // Above the wire's start.
      return CheckWires(
          rule, [&](std::size_t wire) { return TopOf(in_.Loops[wire]) - in_.Loops[wire].Points.front().z; });
    case RuleName::NoCrossing:
      return CheckCrossings(rule);
    case RuleName::WireGap:
      return CheckWireGaps(rule);
    case RuleName::DieToLead: {
      if (!IsDrawn(BaseDieOf(in_.Package))) return;
      const PlanRectangle die = RectangleOf(BaseDieOf(in_.Package));
      return CheckLeads(rule, [&](const PlanRectangle& lead) { return DistanceBetween(die, lead); });
    }
    case RuleName::LeadWidth:
      return CheckLeads(rule, [](const PlanRectangle& lead) { return lead.ShorterSide(); });
    case RuleName::LeadLength:
      return CheckLeads(rule, [](const PlanRectangle& lead) { return lead.LongerSide(); });
    case RuleName::LeadGap:
      return CheckLeadGaps(rule);
    case RuleName::PadSize:
      return CheckPadSizes(rule);
    case RuleName::PadGap:
    case RuleName::PadPitch:
      return CheckPadPairs(rule);
    case RuleName::PadToEdge:
      return CheckPadsToEdge(rule);
    case RuleName::MaxWires:
      return CheckWiresOnLeads(rule);
  }
}

void RulesCheck::CheckWires(const Rule& rule, const std::function<double(std::size_t)>& valueOf) {
  const double slack = rule.Unit == LimitUnit::Degree ? kSlackDegrees : Slack();
  for (std::size_t wire = 0; wire < things_.Wires.size(); ++wire) {
    if (!AppliesTo(rule, things_.Wires[wire])) continue;
    measured_ = true;
    const double value = valueOf(wire);
    const double beyond = rule.Name == RuleName::MinLength ? limit_ - value : value - limit_;
    if (beyond > slack) Report(things_.Wires[wire], value, {wire});
  }
}

void RulesCheck::CheckLeads(const Rule& rule, const std::function<double(const PlanRectangle&)>& valueOf) {
  for (const RuleLead& lead : things_.Leads) {
    if (!AppliesTo(rule, lead)) continue;
    measured_ = true;
    const double value = valueOf(lead.Shape);
    if (value < limit_ - Slack()) Report(lead.Records.front(), value);
  }
}

void RulesCheck::CheckPadSizes(const Rule& rule) {
  for (const RuleDiePad& pad : things_.DiePads) {
    if (!AppliesTo(rule, pad.Record)) continue;
    measured_ = true;
    if (pad.Shape.ShorterSide() < limit_ - Slack()) Report(pad.Record, pad.Shape.ShorterSide());
  }
}

void RulesCheck::CheckPadsToEdge(const Rule& rule) {
  const PlanRectangle base = RectangleOf(BaseDieOf(in_.Package));
  const PlanRectangle stacked = RectangleOf(StackedDieOf(in_.Package));
  for (const RuleDiePad& pad : things_.DiePads) {
    const bool isStacked = pad.Record.Place.Table == model::RecordTable::SDBonds;
    // Pads are drawn even without their die.
    const bool hasDie = IsDrawn(isStacked ? StackedDieOf(in_.Package) : BaseDieOf(in_.Package));
    if (!AppliesTo(rule, pad.Record) || !hasDie) continue;
    measured_ = true;
    const double depth = DepthIn(isStacked ? stacked : base, pad.Shape);
    if (depth < limit_ - Slack()) Report(pad.Record, depth);
  }
}

/// Whether there are two wires to compare at all. With a second net nearly every wire finds one at once.
bool RulesCheck::AnyPairOfWires(const Rule& rule) const {
  const auto isOfFirstNet = [&](const LoopOfNet& loop) { return loop.Net == numbered_.front().Net; };
  if (std::all_of(numbered_.begin(), numbered_.end(), isOfFirstNet)) return false;
  for (std::size_t a = 0; a < things_.Wires.size(); ++a) {
    if (!AppliesTo(rule, things_.Wires[a])) continue;
    const auto isCompared = [&](const LoopOfNet& other) { return AreCompared(numbered_[a], other); };
    if (std::any_of(numbered_.begin(), numbered_.end(), isCompared)) return true;
  }
  return false;
}

Segment RulesCheck::InPlan(std::size_t wire) const {
  const auto& points = in_.Loops[wire].Points;
  return {{points.front().x, points.front().y, 0.0}, {points.back().x, points.back().y, 0.0}};
}

void RulesCheck::CheckCrossings(const Rule& rule) {
  measured_ = AnyPairOfWires(rule);
  std::vector<WirePiece> pieces;
  for (std::size_t wire = 0; wire < things_.Wires.size(); ++wire)
    pieces.push_back({InPlan(wire), static_cast<std::uint32_t>(wire), numbered_[wire].Net});
  const SegmentTree tree(std::move(pieces));
  const double reach = Slack();
  for (std::size_t wire = 0; wire < things_.Wires.size(); ++wire) {
    const Segment line = InPlan(wire);
    const std::array<glm::dvec3, 2> run{line.A, line.B};
    tree.Search({run, numbered_[wire].Net}, reach, [&](const WirePiece& piece) {
      if (piece.Wire <= wire || !AreCompared(numbered_[wire], numbered_[piece.Wire])) return;
      if (!AppliesTo(rule, things_.Wires[wire]) && !AppliesTo(rule, things_.Wires[piece.Wire])) return;
      if (NearestPoints(line, piece.Line).Distance > reach) return;
      ReportPair(things_.Wires[wire], things_.Wires[piece.Wire], {}, {wire, piece.Wire});
    });
  }
}

/// Every pair as near as the widest limit of all rules for gaps, searched for once.
const std::vector<WirePair>& RulesCheck::WirePairs() {
  if (pairs_) return *pairs_;
  double widest = 0.0;
  for (const Rule& rule : set_.Rules)
    if (rule.Name == RuleName::WireGap) widest = std::max(widest, LimitOf(rule, in_));
  pairs_.emplace();
  for (const LoopPair& pair : FindNearLoops(numbered_, widest + in_.WireDiameter))
    pairs_->push_back({pair.First, pair.Second, pair.Distance - in_.WireDiameter});
  return *pairs_;
}

void RulesCheck::CheckWireGaps(const Rule& rule) {
  measured_ = AnyPairOfWires(rule);
  for (const WirePair& pair : WirePairs()) {
    if (pair.Gap >= limit_ - Slack()) continue;
    if (!AppliesTo(rule, things_.Wires[pair.First]) && !AppliesTo(rule, things_.Wires[pair.Second])) continue;
    ReportPair(things_.Wires[pair.First], things_.Wires[pair.Second], pair.Gap, {pair.First, pair.Second});
  }
}

void RulesCheck::CheckLeadGaps(const Rule& rule) {
  std::vector<PlanBox> boxes;
  for (const RuleLead& lead : things_.Leads) {
    boxes.push_back(BoxOf(lead.Shape));
    measured_ = measured_ || (things_.Leads.size() > 1 && AppliesTo(rule, lead));
  }
  ForEachNearPair(boxes, limit_, [&](std::size_t first, std::size_t second) {
    const RuleLead& a = things_.Leads[first];
    const RuleLead& b = things_.Leads[second];
    if (!AppliesTo(rule, a) && !AppliesTo(rule, b)) return;
    const double gap = DistanceBetween(a.Shape, b.Shape);
    if (gap < limit_ - Slack()) ReportPair(a.Records.front(), b.Records.front(), gap);
  });
}

/// Only pads of one die and edge are neighbours.
void RulesCheck::CheckPadPairs(const Rule& rule) {
  std::map<std::pair<model::RecordTable, model::Side>, std::vector<std::size_t>> rows;
  for (std::size_t k = 0; k < things_.DiePads.size(); ++k)
    if (things_.DiePads[k].Edge)
      rows[{things_.DiePads[k].Record.Place.Table, *things_.DiePads[k].Edge}].push_back(k);
  for (const auto& [key, row] : rows) CheckPadRow(rule, row);
}

void RulesCheck::CheckPadRow(const Rule& rule, const std::vector<std::size_t>& row) {
  const bool pitch = rule.Name == RuleName::PadPitch;
  std::vector<PlanBox> boxes;
  for (const std::size_t k : row) {
    const PlanRectangle& shape = things_.DiePads[k].Shape;
    boxes.push_back(pitch ? PlanBox{shape.Centre, shape.Centre} : BoxOf(shape));
    measured_ = measured_ || (row.size() > 1 && AppliesTo(rule, things_.DiePads[k].Record));
  }
  ForEachNearPair(boxes, limit_, [&](std::size_t first, std::size_t second) {
    const RuleDiePad& a = things_.DiePads[row[first]];
    const RuleDiePad& b = things_.DiePads[row[second]];
    if (!AppliesTo(rule, a.Record) && !AppliesTo(rule, b.Record)) return;
    const double value =
        pitch ? glm::distance(a.Shape.Centre, b.Shape.Centre) : DistanceBetween(a.Shape, b.Shape);
    if (value < limit_ - Slack()) ReportPair(a.Record, b.Record, value);
  });
}

void RulesCheck::CheckWiresOnLeads(const Rule& rule) {
  for (const RuleLead& lead : things_.Leads) {
    std::vector<std::size_t> meant;
    for (const std::size_t wire : lead.Wires)
      if (AppliesTo(rule, things_.Wires[wire])) meant.push_back(wire);
    if (meant.empty()) continue;
    measured_ = true;
    const double count = static_cast<double>(meant.size());
    if (count > limit_) Report(lead.Records.front(), count, std::move(meant));
  }
}

}  // namespace

RulesReport CheckRules(const RuleSet& set, const RuleInputs& inputs) { return RulesCheck(set, inputs).Run(); }

}  // namespace analysis
