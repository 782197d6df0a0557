#include <CLI/CLI.hpp>
#include <memory>

#include "analysis/drawing_check.h"
#include "analysis/line_check.h"
#include "analysis/wire_list_check.h"
#include "formats/check_report.h"
#include "yax/commands.h"
#include "yax/options/package.h"
#include "yax/output.h"

namespace yax {

namespace {

struct CheckOptions {
  PackageOptions package;
  bool notes = false;
  bool json = false;
};

Status Check(const CheckOptions& options) {
  formats::CheckReport report{.File = options.package.File};
  analysis::LineCheck lines(report);
  const model::Package package = LoadPackage(options.package, &lines);
  lines.Finish(package);
  analysis::CheckDrawing(package, lines.Lines(), report);
  analysis::CheckWireList(package, lines.Lines(), report);
  report.Sort();
  if (options.json) {
    WriteOutput("-", formats::JsonReport(report, options.notes));
  } else {
    formats::TellReport(report, options.notes);
  }
  return report.Count(formats::Level::Error) + report.Count(formats::Level::Finding) == 0 ? Status::Done
                                                                                          : Status::Findings;
}

}  // namespace

Command AddCheck(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("check", "Tell what the viewer ignores, reads as 0 or cannot draw");
  const auto options = std::make_shared<CheckOptions>();
  AddPackageOption(*command, options->package);
  command->add_flag("--notes", options->notes,
                    "List pads without wire or substrate pad and net types without a wire");
  command->add_flag("--json", options->json, "Write everything as JSON on standard output");
  return {command, [options] { return Check(*options); }};
}

}  // namespace yax
