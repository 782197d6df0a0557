#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "analysis/package_check.h"
#include "analysis/rule_diagnostics.h"
#include "formats/diagnostic_text.h"
#include "model/faults.h"
#include "yax/command_list.h"
#include "yax/options/rule_set.h"
#include "yax/output.h"
#include "yax/pictures/package_picture.h"

namespace yax {

namespace {

struct CheckOptions {
  std::vector<std::string> files;
  bool notes = false;
  bool json = false;
  RulesOptions rules;
  PackageOptions package;  ///< of each file
  PictureOptions picture;
};

using Offenders = model::WireSelection;

/// Adds the findings of the rules.
/// Returns  the wires that break a rule
Offenders AddRules(const RulesOptions& rules, const OpenedPackage& opened,
                   analysis::Diagnostics& diagnostics) {
  const analysis::LengthUnit unit = opened.Unit();
  std::vector<analysis::WireLoop> loops;
  try {
    loops = analysis::WireLoopsOf(opened.Wires());
  } catch (const model::Fault&) {
    analysis::Diagnostic missed{analysis::Severity::Finding,
                                "rules-not-measured",
                                {diagnostics.File, 0},
                                "the rules are not measured because the wires cannot be drawn",
                                "correct the errors first"};
    diagnostics.List.push_back(std::move(missed));
    return {};
  }
  const analysis::RulesReport report = MeasureRules(rules, opened, loops);
  analysis::AddRuleDiagnostics(rules.Set, report, opened.Package, rules.File, unit.Name, diagnostics);
  Offenders offenders{.Shown = true, .Names = {}};
  for (const analysis::RuleRemark& remark : report.Remarks)
    if (analysis::Offends(rules.Set, remark))
      for (const std::size_t wire : remark.Wires) offenders.Names.insert(loops[wire].Name);
  return offenders;
}

analysis::Diagnostics CheckFile(const CheckOptions& options, const std::string& file) {
  analysis::LineCheck lines(file);
  model::Package package = LoadPackage(file, &lines);
  analysis::Diagnostics found = analysis::CheckPackage(package, lines);
  if (options.rules.File.empty()) return found;
  OpenedPackage opened(options.package, std::move(package), lines.Lines());
  opened.Selection = AddRules(options.rules, opened, found);
  found.Sort();
  if (!options.picture.File.empty()) WritePicture(opened, options.picture);
  return found;
}

bool IsClean(const analysis::Diagnostics& found) {
  return found.Count(analysis::Severity::Error) == 0 && found.Count(analysis::Severity::Finding) == 0;
}

Status CheckOne(const CheckOptions& options) {
  const analysis::Diagnostics found = CheckFile(options, options.files.front());
  if (options.json) {
    WriteOutput("-", formats::JsonOf(found, options.notes));
  } else {
    std::fputs(formats::MessagesOf(found, options.notes).c_str(), stderr);
    WriteOutput("-", formats::SummaryOf(found));
  }
  return IsClean(found) ? Status::Done : Status::Findings;
}

/// Checks the other files too when one is unusable.
Status CheckSeveral(const CheckOptions& options) {
  Status status = Status::Done;
  std::vector<analysis::Diagnostics> all;
  std::size_t unclean = 0;
  for (const std::string& file : options.files) {
    try {
      all.push_back(CheckFile(options, file));
    } catch (const Unusable& unusable) {
      std::fprintf(stderr, "%s\n", unusable.what());
      status = Status::Unusable;
      continue;
    }
    if (!IsClean(all.back())) ++unclean;
    if (options.json) continue;
    std::fputs(formats::MessagesOf(all.back(), options.notes).c_str(), stderr);
    WriteOutput("-", file + ": " + formats::SummaryOf(all.back()));
  }
  if (options.json) {
    WriteOutput("-", formats::JsonOf(all, options.notes));
  } else {
    const std::size_t unusable = options.files.size() - all.size();
    WriteOutput("-", std::to_string(options.files.size()) + " files, " + std::to_string(unclean) +
                         " with errors or findings" +
                         (unusable == 0 ? "" : ", " + std::to_string(unusable) + " unusable") + "\n");
  }
  return status == Status::Done && unclean > 0 ? Status::Findings : status;
}

Status Check(const CheckOptions& options) {
  if (!options.picture.File.empty() && (options.rules.File.empty() || options.files.size() > 1))
    throw Unusable(CommandLine(), "--picture draws what --rules finds in one package",
                   "give --rules and a single file, or leave it out");
  return options.files.size() == 1 ? CheckOne(options) : CheckSeveral(options);
}

}  // namespace

Command AddCheck(CLI::App& program) {
  CLI::App* const command = program.add_subcommand(
      "check", "Report what the viewer ignores or cannot draw, and which rules are broken");
  const auto options = std::make_shared<CheckOptions>();
  command->add_option("FILE.yax", options->files, "The packages to read")->type_name("FILE")->required();
  command->add_flag("--notes", options->notes,
                    "List pads without a wire or a substrate pad, and net types without a wire");
  command->add_flag("--json", options->json, "Write everything as JSON on standard output");
  AddRulesOptions(*command, options->rules);
  AddPictureFile(*command, "Draw the package with only the wires that break a rule, .png or .bmp",
                 options->picture);
  AddUnitOption(*command, options->package);
  AddLoopOptions(*command, options->package.Loops);
  AddPictureOptions(*command, options->picture);
  return {command, [options] { return Check(*options); }};
}

}  // namespace yax
