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
  std::vector<std::string> Files;
  bool Notes = false;
  bool Json = false;
  RulesOptions Rules;
  PackageOptions Package;  ///< of each file
  PictureOptions Picture;
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
  if (options.Rules.File.empty()) return found;
  OpenedPackage opened(options.Package, std::move(package), lines.Lines());
  opened.Selection = AddRules(options.Rules, opened, found);
  found.Sort();
  if (!options.Picture.File.empty()) WritePicture(opened, options.Picture);
  return found;
}

bool IsClean(const analysis::Diagnostics& found) {
  return found.Count(analysis::Severity::Error) == 0 && found.Count(analysis::Severity::Finding) == 0;
}

Status CheckOne(const CheckOptions& options) {
  const analysis::Diagnostics found = CheckFile(options, options.Files.front());
  if (options.Json) {
    WriteOutput("-", formats::JsonOf(found, options.Notes));
  } else {
    std::fputs(formats::MessagesOf(found, options.Notes).c_str(), stderr);
    WriteOutput("-", formats::SummaryOf(found));
  }
  return IsClean(found) ? Status::Done : Status::Findings;
}

/// Checks the other files too when one is unusable.
Status CheckSeveral(const CheckOptions& options) {
  Status status = Status::Done;
  std::vector<analysis::Diagnostics> all;
  std::size_t unclean = 0;
  for (const std::string& file : options.Files) {
    try {
      all.push_back(CheckFile(options, file));
    } catch (const Unusable& unusable) {
      std::fprintf(stderr, "%s\n", unusable.what());
      status = Status::Unusable;
      continue;
    }
    if (!IsClean(all.back())) ++unclean;
    if (options.Json) continue;
    std::fputs(formats::MessagesOf(all.back(), options.Notes).c_str(), stderr);
    WriteOutput("-", file + ": " + formats::SummaryOf(all.back()));
  }
  if (options.Json) {
    WriteOutput("-", formats::JsonOf(all, options.Notes));
  } else {
    const std::size_t unusable = options.Files.size() - all.size();
    WriteOutput("-", std::to_string(options.Files.size()) + " files, " + std::to_string(unclean) +
                         " with errors or findings" +
                         (unusable == 0 ? "" : ", " + std::to_string(unusable) + " unusable") + "\n");
  }
  return status == Status::Done && unclean > 0 ? Status::Findings : status;
}

Status Check(const CheckOptions& options) {
  if (!options.Picture.File.empty() && (options.Rules.File.empty() || options.Files.size() > 1))
    throw Unusable(CommandLine(), "--picture needs --rules and a single file", "add them or remove it");
  return options.Files.size() == 1 ? CheckOne(options) : CheckSeveral(options);
}

}  // namespace

Command AddCheck(CLI::App& program) {
  CLI::App* const command = program.add_subcommand(
      "check", "Report what the viewer ignores or cannot draw, and which rules are broken");
  const auto options = std::make_shared<CheckOptions>();
  command->add_option("FILE.yax", options->Files, "The packages to read")->type_name("FILE")->required();
  command->add_flag("--notes", options->Notes,
                    "List pads without a wire or a substrate pad, and net types without a wire");
  command->add_flag("--json", options->Json, "Write everything as JSON on standard output");
  AddRulesOptions(*command, options->Rules);
  AddPictureFile(*command, "Draw the package with only the wires that break a rule, .png or .bmp",
                 options->Picture);
  AddUnitOption(*command, options->Package);
  AddLoopOptions(*command, options->Package.Loops);
  AddPictureOptions(*command, options->Picture);
  return {command, [options] { return Check(*options); }};
}

}  // namespace yax
