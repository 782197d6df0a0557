#include "analysis/clearance.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace analysis {

namespace {

/// Assigns a number to each different text.
class Numbers {
 public:
  std::uint32_t Of(const std::string& text) {
    return numbers_.emplace(text, static_cast<std::uint32_t>(numbers_.size())).first->second;
  }

 private:
  std::unordered_map<std::string, std::uint32_t> numbers_;
};

Finding KindOf(double clearance, const std::optional<double>& limit) {
  if (clearance <= 0.0) return Finding::Touching;
  return limit && clearance < *limit ? Finding::BelowLimit : Finding::None;
}

}  // namespace

std::size_t Clearances::Count(Finding kind) const {
  return static_cast<std::size_t>(
      std::count_if(Rows.begin(), Rows.end(), [kind](const ClearanceRow& row) { return row.Kind == kind; }));
}

std::vector<LoopOfNet> LoopsByNumber(const std::vector<WireLoop>& loops, const NetRule& rule) {
  Numbers nets;
  Numbers pads;
  std::vector<LoopOfNet> numbered;
  numbered.reserve(loops.size());
  for (const WireLoop& loop : loops)
    numbered.push_back({.Points = loop.Points,
                        .Net = nets.Of(NetOf(rule, loop.Name)),
                        .Pads = {pads.Of(loop.Pads[0]), pads.Of(loop.Pads[1])}});
  return numbered;
}

Clearances MeasureClearances(const std::vector<WireLoop>& loops, const ClearanceRules& rules) {
  Clearances clearances{
      .WireDiameter = rules.WireDiameter, .Limit = rules.Limit, .Wires = loops.size(), .Rows = {}};
  const double reach = rules.All ? rules.WireDiameter + std::max(rules.Limit.value_or(0.0), 0.0) : -1.0;
  const std::vector<LoopOfNet> numbered = LoopsByNumber(loops, rules.Nets);
  for (const LoopPair& pair : FindNearLoops(numbered, reach)) {
    const WireLoop& first = loops[pair.First];
    const WireLoop& second = loops[pair.Second];
    const double clearance = pair.Distance - rules.WireDiameter;
    clearances.Rows.push_back({.First = pair.First,
                               .Second = pair.Second,
                               .Name = first.Name,
                               .Other = second.Name,
                               .Net = NetOf(rules.Nets, first.Name),
                               .OtherNet = NetOf(rules.Nets, second.Name),
                               .Clearance = clearance,
                               .Where = pair.Where,
                               .Kind = KindOf(clearance, rules.Limit)});
  }
  return clearances;
}

}  // namespace analysis
