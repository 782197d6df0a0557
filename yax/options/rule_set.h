/// The options for checking a package against rules.
#pragma once

#include <string>
#include <vector>

#include "analysis/nets.h"
#include "analysis/rules_check.h"
#include "yax/options/opened_package.h"

namespace yax {

struct RulesOptions {
  std::string File;  ///< empty for none
  analysis::RuleSet Set;
  analysis::NetRule Nets;
};

/// Adds --rules and --net-pattern.
/// Faults  in the parse, Unusable when the file does not exist or has a line that is not a rule
void AddRulesOptions(CLI::App& command, RulesOptions& options);

/// Measures the package against the rules. `loops` are those of all its wires.
/// Faults  Unusable without a usable unit or wire diameter
analysis::RulesReport MeasureRules(const RulesOptions& options, const OpenedPackage& opened,
                                   const std::vector<analysis::WireLoop>& loops);

}  // namespace yax
