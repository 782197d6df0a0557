#include "analysis/rule_things.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>

#include "analysis/pads.h"
#include "model/text.h"

namespace analysis {

namespace {

class Collector {
 public:
  Collector(const model::Package& package, const RecordLines& lines) : package_(package), lines_(lines) {
    for (const model::WireNameRec& entry : package.WireNames) entries_.emplace(entry.Name, &entry);
  }

  RuleThings Run(const std::vector<WireRow>& rows) {
    for (const WireRow& row : rows)
      things_.Wires.push_back({row.Place, lines_.Of(row.Place), row.Tier, row.NetType});
    AddLeads();
    for (const Pad& pad : DiePads(package_))
      things_.DiePads.push_back({pad.Shape, ThingOf(pad), model::SideOf(BondOf(package_, pad).DieSide)});
    return std::move(things_);
  }

 private:
  RuleThing ThingOf(const Pad& pad) const {
    RuleThing thing{pad.Place, lines_.Of(pad.Place), {}, {}};
    const auto entry = entries_.find(BondOf(package_, pad).Name);
    if (entry != entries_.end())
      std::tie(thing.Tier, thing.NetType) = std::tie(entry->second->Tier, entry->second->NetType);
    return thing;
  }

  void AddLeads() {
    std::map<std::array<double, 6>, std::size_t> numbers;
    std::map<model::RecordPlace, std::size_t> leadOfBond;
    for (const Pad& pad : SubstratePads(package_)) {
      const PlanRectangle& at = pad.Shape;
      const auto [found, isNew] = numbers.try_emplace(
          {at.Centre.x, at.Centre.y, at.Axis.x, at.Axis.y, at.Half.x, at.Half.y}, things_.Leads.size());
      if (isNew) things_.Leads.push_back({at, {}, {}});
      things_.Leads[found->second].Records.push_back(ThingOf(pad));
      leadOfBond[WholeRecord(pad.Place)] = found->second;
    }
    for (RuleLead& lead : things_.Leads)
      std::stable_sort(lead.Records.begin(), lead.Records.end(),
                       [](const RuleThing& a, const RuleThing& b) { return a.Line < b.Line; });
    // A wire ends on the substrate pad of its bond.
    for (std::size_t wire = 0; wire < things_.Wires.size(); ++wire) {
      const auto lead = leadOfBond.find(WholeRecord(things_.Wires[wire].Place));
      if (lead != leadOfBond.end()) things_.Leads[lead->second].Wires.push_back(wire);
    }
  }

  const model::Package& package_;
  const RecordLines& lines_;
  std::map<std::string_view, const model::WireNameRec*> entries_;
  RuleThings things_;
};

}  // namespace

RuleThings RuleThingsOf(const model::Package& package, const RecordLines& lines,
                        const std::vector<WireRow>& rows) {
  return Collector(package, lines).Run(rows);
}

bool AppliesTo(const Rule& rule, const RuleThing& thing) {
  if (!rule.Tier.empty()) return thing.Tier == rule.Tier;
  // Only the first letter of a net type counts, in any case.
  return rule.NetType.empty() ||
         model::EqualsUpper(thing.NetType.substr(0, 1), std::string_view(rule.NetType).substr(0, 1));
}

bool AppliesTo(const Rule& rule, const RuleLead& lead) {
  return std::any_of(lead.Records.begin(), lead.Records.end(),
                     [&](const RuleThing& record) { return AppliesTo(rule, record); });
}

}  // namespace analysis
