#include "yax/options/rule_set.h"

#include <CLI/CLI.hpp>
#include <utility>

#include "model/text.h"
#include "yax/options/nets_options.h"
#include "yax/options/text_file.h"
#include "yax/options/unit.h"

namespace yax {

void AddRulesOptions(CLI::App& command, RulesOptions& options) {
  command.add_option("--rules", options.File, "Check the package against an assembly house's rules")
      ->type_name("FILE");
  AddNetOptions(command, options.Nets);
}

analysis::RuleSet ReadRulesFile(const RulesOptions& options) {
  return analysis::ReadRules(options.File, TextOf(options.File));
}

RulesFound MeasureRules(const RulesOptions& options, analysis::RuleSet set, const MeasuredPackage& measured) {
  RulesFound found{std::move(set), {}, {}};
  found.Name = found.Set.Name.empty() ? std::string(model::FileNameOf(options.File)) : found.Set.Name;
  found.Report =
      analysis::CheckRules(found.Set, {.Package = measured.Package,
                                       .Lines = measured.Lines,
                                       .Loops = measured.Loops,
                                       .Nets = options.Nets,
                                       .Millimetres = measured.Unit.Metres * 1e3,
                                       .WireDiameter = WireDiameterIn(measured.Unit, measured.Settings)});
  return found;
}

}  // namespace yax
