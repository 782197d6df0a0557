// Rules files of assembly houses, as `yax check --rules` and `yax diagram --rules` read them.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/rules.h"
#include "fuzz/expect.h"
#include "model/input_error.h"

namespace {

void ExpectRule(const analysis::Rule& rule) {
  Expect(std::isfinite(rule.Limit) && rule.Limit >= 0.0, "limits are numbers from 0 on");
  Expect(rule.Line > 0, "a rule has a line");
  Expect(rule.Tier.empty() || rule.NetType.empty(), "a rule is for a tier or a net type");
  Expect(analysis::KindOf(rule.Name).HasPlan || !rule.Plan, "only lengths are measured in plan");
  const analysis::Quantity quantity = analysis::KindOf(rule.Name).Limit;
  Expect((quantity == analysis::Quantity::Length || quantity == analysis::Quantity::Angle) ==
             (rule.Unit != analysis::LimitUnit::None),
         "lengths and angles have a unit");
  // RuleText gives a line of a rules file.
  const std::string text = analysis::RuleText(rule);
  const analysis::RuleSet again = analysis::ReadRules("again", text);
  Expect(again.Rules.size() == 1 && analysis::RuleText(again.Rules[0]) == text, "a rule's text is the rule");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    for (const analysis::Rule& rule : analysis::ReadRules("rules", text).Rules) ExpectRule(rule);
  } catch (const model::InputError& error) {
    const std::string_view what = error.what();
    Expect(what.substr(0, 6) == "rules:" && what.size() > 8, "a refusal has a line and a reason");
    Expect(what.find('\n') == std::string_view::npos, "a refusal is one line");
  }
  return 0;
}
