/// Measures a package against rules.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis/nets.h"
#include "analysis/record_lines.h"
#include "analysis/rules.h"
#include "analysis/wire_loops.h"
#include "model/package.h"
#include "model/record_place.h"

namespace analysis {

struct RuleInputs {
  const model::Package& Package;
  const RecordLines& Lines;
  const std::vector<WireLoop>& Loops;  ///< the loops of all wires
  const NetRule& Nets;
  double Millimetres = 1.0;   ///< millimetres in a file unit
  double WireDiameter = 0.0;  ///< file units
};

/// A value beyond its limit.
struct RuleRemark {
  std::size_t Rule = 0;                          ///< index into the set
  model::RecordPlace Place = {};                 ///< of a pair, the record that comes later in the file
  std::size_t Line = 0;                          ///< line of the package file
  std::optional<model::RecordPlace> Other = {};  ///< the other record of a pair
  std::size_t OtherLine = 0;
  std::optional<double> Value = {}, Limit = {};  ///< file units, degrees or a number of wires
  std::vector<std::size_t> Wires = {};           ///< the wires that break the rule: indices into the loops
};

struct RulesReport {
  std::vector<RuleRemark> Remarks;      ///< rule by rule
  std::vector<std::size_t> Unmeasured;  ///< rules for which there is nothing to measure
};

RulesReport CheckRules(const RuleSet& set, const RuleInputs& inputs);

}  // namespace analysis
