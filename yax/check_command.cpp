#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>

#include "analysis/package_check.h"
#include "formats/diagnostic_text.h"
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
  analysis::LineCheck lines(options.package.File);
  const model::Package package = LoadPackage(options.package, &lines);
  const analysis::Diagnostics found = analysis::CheckPackage(package, lines);
  if (options.json) {
    WriteOutput("-", formats::JsonOf(found, options.notes));
  } else {
    std::fputs(formats::MessagesOf(found, options.notes).c_str(), stderr);
    WriteOutput("-", formats::SummaryOf(found));
  }
  const bool clean =
      found.Count(analysis::Severity::Error) == 0 && found.Count(analysis::Severity::Finding) == 0;
  return clean ? Status::Done : Status::Findings;
}

}  // namespace

Command AddCheck(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("check", "Report what the viewer ignores, reads as 0 or cannot draw");
  const auto options = std::make_shared<CheckOptions>();
  AddPackageOption(*command, options->package);
  command->add_flag("--notes", options->notes,
                    "List pads without wire or substrate pad and net types without a wire");
  command->add_flag("--json", options->json, "Write everything as JSON on standard output");
  return {command, [options] { return Check(*options); }};
}

}  // namespace yax
