#include "yax/options/rule_set.h"

#include <CLI/CLI.hpp>

#include "yax/options/nets_options.h"
#include "yax/options/text_file.h"

namespace yax {

void AddRulesOptions(CLI::App& command, RulesOptions& options) {
  AddFileOption(command, "--rules", "Check the package against an assembly house's rules",
                [&options](const std::string& file) {
                  options.File = file;
                  options.Set = analysis::ReadRules(file, TextOf(file));
                });
  AddNetOptions(command, options.Nets);
}

analysis::RulesReport MeasureRules(const RulesOptions& options, const OpenedPackage& opened,
                                   const std::vector<analysis::WireLoop>& loops) {
  return analysis::CheckRules(options.Set, {.Package = opened.Package,
                                            .Lines = opened.Lines,
                                            .Loops = loops,
                                            .Nets = options.Nets,
                                            .Millimetres = opened.Unit().Millimetres,
                                            .WireDiameter = opened.WireDiameter()});
}

}  // namespace yax
