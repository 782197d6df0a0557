/// Design rules of an assembly house.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/units.h"

namespace analysis {

enum class RuleName {
  MaxLength,
  MinLength,
  MaxAngle,
  NoCrossing,
  WireGap,
  MaxLoopHeight,
  DieToLead,
  LeadWidth,
  LeadLength,
  LeadGap,
  PadSize,
  PadGap,
  PadPitch,
  PadToEdge,
  MaxWires
};

/// The quantity that a rule limits.
enum class Quantity { None, Length, Angle, Count };

struct RuleKind {
  RuleName Name;
  std::string_view Word;  ///< as rules files write it
  Quantity Limit;
  bool HasPlan;  ///< may be measured seen from above
};

const RuleKind& KindOf(RuleName name);

/// The unit of a limit; a length has one of the units of package files.
enum class LimitUnit { None, Length, DieHeight, Degree };

enum class RuleLevel { Note, Finding, Error };

/// One line of a rules file.
struct Rule {
  RuleName Name = RuleName::MaxLength;
  double Limit = 0.0;
  LimitUnit Unit = LimitUnit::None;
  std::optional<LengthUnit> Length = {};  ///< the unit of a length
  bool Plan = false;
  std::string Tier, NetType;  ///< only these wires and pads; empty for all
  RuleLevel Level = RuleLevel::Finding;
  std::size_t Line = 0;  ///< line of the rules file
};

struct RuleSet {
  std::string Name;  ///< empty where the file gives none
  std::vector<Rule> Rules;
};

/// The rules of a file, in the order of its lines. Of rules that differ only in limit and level the last one
/// counts; a limit in die heights and one in another unit are different rules.
/// Faults  InputError at the first line that is not a rule
RuleSet ReadRules(const std::string& file, std::string_view text);

/// The rule in words, as a rules file writes it: "max-length 5 mm plan tier 2".
std::string RuleText(const Rule& rule);

}  // namespace analysis
