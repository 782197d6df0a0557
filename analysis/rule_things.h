/// The wires, leads and die pads of a package, as rules measure them.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "analysis/lengths.h"
#include "analysis/plan_rectangle.h"
#include "analysis/record_lines.h"
#include "analysis/rules.h"
#include "model/package.h"
#include "model/record_place.h"
#include "model/side.h"

namespace analysis {

/// A record with the tier and net type that rules select by; the wire list's entry of its name gives both.
struct RuleThing {
  model::RecordPlace Place;
  std::size_t Line = 0;
  std::string_view Tier, NetType;
};

/// A substrate pad that one record has, or several with the same place, size and angle.
struct RuleLead {
  PlanRectangle Shape;
  std::vector<RuleThing> Records;  ///< in the order of the file's lines
  std::vector<std::size_t> Wires;  ///< the wires that end here, as indices into RuleThings::Wires
};

struct RuleDiePad {
  PlanRectangle Shape;
  RuleThing Record;
  std::optional<model::Side> Edge;
};

/// Holds views of texts in the package and the rows.
struct RuleThings {
  std::vector<RuleThing> Wires;  ///< in the order of the rows
  std::vector<RuleLead> Leads;
  std::vector<RuleDiePad> DiePads;
};

/// Needs   `rows` of all wires
RuleThings RuleThingsOf(const model::Package& package, const RecordLines& lines,
                        const std::vector<WireRow>& rows);

/// True when the rule names no tier or net type, or the thing's (for a lead: that of any of its records).
bool AppliesTo(const Rule& rule, const RuleThing& thing);
bool AppliesTo(const Rule& rule, const RuleLead& lead);

}  // namespace analysis
