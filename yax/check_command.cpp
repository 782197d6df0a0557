#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "analysis/package_check.h"
#include "analysis/rule_diagnostics.h"
#include "formats/diagnostic_text.h"
#include "model/faults.h"
#include "yax/command_list.h"
#include "yax/options/camera_options.h"
#include "yax/options/opened_package.h"
#include "yax/options/picture_options.h"
#include "yax/options/rule_set.h"
#include "yax/options/unit.h"
#include "yax/output.h"
#include "yax/pictures/package_picture.h"

namespace yax {

namespace {

struct CheckOptions {
  std::vector<std::string> files;
  bool notes = false;
  bool json = false;
  RulesOptions rules;
  std::string pictureFile;  ///< empty for none
  UnitOptions unit;
  LoopOptions loops;
  PictureOptions picture;
  CameraOptions camera;
};

using Offenders = model::WireSelection;

/// Adds the findings of the rules.
/// Returns  the wires that break a rule
Offenders AddRules(const CheckOptions& options, const analysis::RuleSet& set, const model::Package& package,
                   const analysis::RecordLines& lines, analysis::Diagnostics& diagnostics) {
  const analysis::LengthUnit unit = UnitOf(options.unit, package);
  const model::WireBondSettings settings = SettingsOf(options.loops, package);
  const model::WireShapes shapes = ShapesOf(options.loops.Tiers, package);
  std::vector<analysis::WireLoop> loops;
  try {
    loops = analysis::WireLoopsOf({package, settings, {}, &shapes});
  } catch (const model::Fault&) {
    analysis::Diagnostic missed{analysis::Severity::Finding,
                                "rules-not-measured",
                                {diagnostics.File, 0},
                                "the rules are not measured because the wires cannot be drawn",
                                "correct the errors first"};
    diagnostics.List.push_back(std::move(missed));
    return {};
  }
  const RulesFound found = MeasureRules(options.rules, set, {package, lines, loops, settings, unit});
  analysis::AddRuleDiagnostics(found.Set, found.Report, package, options.rules.File, unit.Name, diagnostics);
  Offenders offenders{.Shown = true, .Names = {}};
  for (const analysis::RuleRemark& remark : found.Report.Remarks)
    if (analysis::Offends(found.Set, remark))
      for (const std::size_t wire : remark.Wires) offenders.Names.insert(loops[wire].Name);
  return offenders;
}

analysis::Diagnostics CheckFile(const CheckOptions& options, const std::string& file,
                                const std::optional<analysis::RuleSet>& set) {
  analysis::LineCheck lines(file);
  const model::Package package = LoadPackage({file}, &lines);
  analysis::Diagnostics found = analysis::CheckPackage(package, lines);
  if (!set) return found;
  const Offenders offenders = AddRules(options, *set, package, lines.Lines(), found);
  found.Sort();
  if (!options.pictureFile.empty()) {
    OpenedPackage opened({file}, options.loops);
    opened.Selection = offenders;
    WriteOutput(options.pictureFile,
                PictureBytes(opened, options.camera, options.picture, PictureFormatOf(options.pictureFile)));
  }
  return found;
}

bool IsClean(const analysis::Diagnostics& found) {
  return found.Count(analysis::Severity::Error) == 0 && found.Count(analysis::Severity::Finding) == 0;
}

Status CheckOne(const CheckOptions& options, const std::optional<analysis::RuleSet>& set) {
  const analysis::Diagnostics found = CheckFile(options, options.files.front(), set);
  if (options.json) {
    WriteOutput("-", formats::JsonOf(found, options.notes));
  } else {
    std::fputs(formats::MessagesOf(found, options.notes).c_str(), stderr);
    WriteOutput("-", formats::SummaryOf(found));
  }
  return IsClean(found) ? Status::Done : Status::Findings;
}

/// Checks the other files too when one is unusable.
Status CheckSeveral(const CheckOptions& options, const std::optional<analysis::RuleSet>& set) {
  Status status = Status::Done;
  std::vector<analysis::Diagnostics> all;
  std::size_t unclean = 0;
  for (const std::string& file : options.files) {
    try {
      all.push_back(CheckFile(options, file, set));
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
  std::optional<analysis::RuleSet> set;
  if (!options.rules.File.empty()) set = ReadRulesFile(options.rules);
  if (!options.pictureFile.empty()) {
    PictureFormatOf(options.pictureFile);
    CheckCamera(options.camera);
    if (!set || options.files.size() > 1)
      throw Unusable(CommandLine(), "--picture draws what --rules finds in one package",
                     "give --rules and a single file, or leave it out");
  }
  return options.files.size() == 1 ? CheckOne(options, set) : CheckSeveral(options, set);
}

}  // namespace

Command AddCheck(CLI::App& program) {
  CLI::App* const command = program.add_subcommand(
      "check", "Report what the viewer ignores or cannot draw, and which rules are broken");
  const auto options = std::make_shared<CheckOptions>();
  command->add_option("FILE.yax", options->files, "The packages to read")->type_name("FILE")->required();
  command->add_flag("--notes", options->notes,
                    "List pads without wire or substrate pad and net types without a wire");
  command->add_flag("--json", options->json, "Write everything as JSON on standard output");
  AddRulesOptions(*command, options->rules);
  command
      ->add_option("--picture", options->pictureFile,
                   "Draw the package with only the wires that break a rule, .png or .bmp")
      ->type_name("FILE");
  AddUnitOption(*command, options->unit);
  AddLoopOptions(*command, options->loops);
  AddPictureOptions(*command, options->picture);
  AddCameraOptions(*command, options->camera);
  return {command, [options] { return Check(*options); }};
}

}  // namespace yax
