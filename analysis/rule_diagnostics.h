/// Findings of rules in words.
#pragma once

#include <string>

#include "analysis/diagnostics.h"
#include "analysis/rules.h"
#include "analysis/rules_check.h"
#include "model/package.h"

namespace analysis {

/// Adds each remark, with its measured value, and a note for each rule that has nothing to measure.
/// `unit` is the name of the file's unit.
void AddRuleDiagnostics(const RuleSet& set, const RulesReport& report, const model::Package& package,
                        const std::string& rulesFile, const std::string& unit, Diagnostics& diagnostics);

/// Whether a remark is more than a note.
bool Offends(const RuleSet& set, const RuleRemark& remark);

}  // namespace analysis
