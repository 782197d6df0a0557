#include "analysis/rule_diagnostics.h"

#include <array>

#include "model/numbers.h"
#include "model/text.h"

namespace analysis {

namespace {

/// "WIRE is VALUE long, over the limit of LIMIT": the words before and after the value, which stand before
/// the other record of a pair.
struct Wording {
  const char* Before;
  const char* After;
  bool Least;  ///< the limit is a least value
  const char* Advice;
};

// In the order of RuleName.
constexpr std::array<Wording, 15> kWordings{
    {{"is", "long", false, "move its pad or its end"},
     {"is", "long", true, "move its pad or its end"},
     {"turns", "from the normal of its pad's edge", false, "move its pad or its end"},
     {"crosses", "", false, "move one of them"},
     {"leaves", "to", true, "move one of them, or shape its loop"},
     {"rises", "above its start", false, "lower its loop"},
     {"is", "away from the die", true, "move the substrate pad"},
     {"is", "wide", true, "make it wider"},
     {"is", "long", true, "make it longer"},
     {"leaves", "to", true, "move one of them"},
     {"has a shorter side of", "", true, "make it larger"},
     {"leaves", "to", true, "move one of them"},
     {"has its centre", "from that of", true, "move one of them"},
     {"is", "inside the edge of its die", true, "move it inwards"},
     {"takes", "", false, "end a wire elsewhere"}}};

std::string WhatOf(const Rule& rule, const RuleRemark& remark, const model::Package& package,
                   const std::string& unit) {
  const Wording& words = kWordings[static_cast<std::size_t>(rule.Name)];
  const auto number = [&](double value) {
    return model::GeneralText(static_cast<float>(value)) + (!unit.empty()  ? " " + unit
                                                            : value == 1.0 ? " wire"
                                                                           : " wires");
  };
  std::string what = std::string(KindOf(rule.Name).Word) + ": " + QuotedRecordName(package, remark.Place) +
                     " " + words.Before;
  if (remark.Value) what += " " + number(*remark.Value);
  if (*words.After != '\0') what += std::string(" ") + words.After;
  if (rule.Plan) what += " in plan";
  if (remark.Other)
    what += " " + QuotedRecordName(package, *remark.Other) + " of line " + std::to_string(remark.OtherLine);
  if (remark.Limit)
    what += (words.Least ? ", under the limit of " : ", over the limit of ") + number(*remark.Limit);
  return what;
}

Severity SeverityOf(RuleLevel level) {
  return level == RuleLevel::Error     ? Severity::Error
         : level == RuleLevel::Finding ? Severity::Finding
                                       : Severity::Note;
}

}  // namespace

bool Offends(const RuleSet& set, const RuleRemark& remark) {
  return set.Rules[remark.Rule].Level != RuleLevel::Note;
}

void AddRuleDiagnostics(const RuleSet& set, const RulesReport& report, const model::Package& package,
                        const std::string& rulesFile, const std::string& unit, Diagnostics& diagnostics) {
  for (const RuleRemark& remark : report.Remarks) {
    const Rule& rule = set.Rules[remark.Rule];
    const Quantity quantity = KindOf(rule.Name).Limit;
    const std::string unitOfValue = quantity == Quantity::Length  ? unit
                                    : quantity == Quantity::Angle ? "deg"
                                                                  : "";
    diagnostics.List.push_back({SeverityOf(rule.Level),
                                "rule",
                                {diagnostics.File, remark.Line},
                                WhatOf(rule, remark, package, unitOfValue),
                                kWordings[static_cast<std::size_t>(rule.Name)].Advice,
                                RuleValue{std::string(KindOf(rule.Name).Word), remark.Value, remark.Limit,
                                          unitOfValue, remark.Other ? remark.OtherLine : 0}});
  }
  for (const std::size_t number : report.Unmeasured) {
    const Rule& rule = set.Rules[number];
    diagnostics.List.push_back({Severity::Note,
                                "rules-without-measure",
                                {rulesFile, rule.Line},
                                "the package has nothing for " + RuleText(rule),
                                ""});
  }
}

}  // namespace analysis
