/// The options for checking a package against rules.
#pragma once

#include <string>

#include "analysis/nets.h"
#include "analysis/record_lines.h"
#include "analysis/rules_check.h"
#include "analysis/units.h"
#include "analysis/wire_loops.h"
#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace CLI {
class App;
}

namespace yax {

struct RulesOptions {
  std::string File;  ///< empty for none
  analysis::NetRule Nets;
};

/// Adds --rules and --net-pattern.
void AddRulesOptions(CLI::App& command, RulesOptions& options);

/// Rules and their findings.
struct RulesFound {
  analysis::RuleSet Set;
  analysis::RulesReport Report;

  /// The title of the set, or its file's name when it has none.
  std::string Name;
};

/// The input of the rules: every wire of a package.
struct MeasuredPackage {
  const model::Package& Package;
  const analysis::RecordLines& Lines;
  const std::vector<analysis::WireLoop>& Loops;
  const model::WireBondSettings& Settings;
  const analysis::LengthUnit& Unit;
};

/// Faults  Unusable when the file does not exist or has a line that is not a rule
analysis::RuleSet ReadRulesFile(const RulesOptions& options);
RulesFound MeasureRules(const RulesOptions& options, analysis::RuleSet set, const MeasuredPackage& measured);

}  // namespace yax
