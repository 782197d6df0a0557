#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "analysis/clearance.h"
#include "formats/clearance_table.h"
#include "yax/command_list.h"
#include "yax/options/nets_options.h"
#include "yax/options/option_text.h"
#include "yax/output.h"
#include "yax/pictures/package_picture.h"

namespace yax {

namespace {

struct ClearanceOptions {
  PackageOptions Package;
  std::string Output = "-";
  bool Json = false;
  bool All = false;
  std::optional<double> Limit;
  analysis::NetRule Nets;
  PictureOptions Picture;
};

/// The wires of the findings.
model::WireSelection OffendersOf(const analysis::Clearances& clearances) {
  model::WireSelection selection{.Shown = true, .Names = {}};
  for (const analysis::ClearanceRow& row : clearances.Rows)
    if (row.Kind != analysis::Finding::None) selection.Names.insert({row.Name, row.Other});
  return selection;
}

Status Clearance(const ClearanceOptions& options) {
  OpenedPackage opened(options.Package);
  const analysis::LengthUnit unit = opened.Unit();
  const analysis::Clearances clearances =
      analysis::MeasureClearances(opened.Loops(), {.Nets = options.Nets,
                                                   .WireDiameter = opened.WireDiameter(),
                                                   .Limit = options.Limit,
                                                   .All = options.All});
  if (!options.Picture.File.empty()) {
    opened.Selection = OffendersOf(clearances);
    WritePicture(opened, options.Picture);
  }
  WriteOutput(options.Output,
              options.Json ? formats::JsonOf(clearances, unit) : formats::ColumnsOf(clearances, unit));
  const bool clear = clearances.Count(analysis::Finding::Touching) == 0 &&
                     clearances.Count(analysis::Finding::BelowLimit) == 0;
  return clear ? Status::Done : Status::Findings;
}

}  // namespace

Command AddClearance(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("clearance", "Measure the clearance between wires of different nets");
  const auto options = std::make_shared<ClearanceOptions>();
  AddPackageOption(*command, options->Package);
  command->add_option("-o,--output", options->Output, "Output file (default: -, standard output)")
      ->type_name("FILE");
  command->add_flag("--json", options->Json, "Write JSON instead of columns");
  command
      ->add_option_function<std::string>(
          "--limit", [options](const std::string& text) { options->Limit = DoubleOf("--limit", text); },
          "Also report pairs closer than this, in file units, not only those that touch")
      ->type_name("UNITS");
  command->add_flag("--all", options->All, "List all findings, not only each wire's nearest pair");
  AddPictureFile(*command, "Draw the package with only the wires of the findings, .png or .bmp",
                 options->Picture);
  AddUnitOption(*command, options->Package);
  AddNetOptions(*command, options->Nets);
  AddLoopOptions(*command, options->Package.Loops);
  AddPictureOptions(*command, options->Picture);
  return {command, [options] { return Clearance(*options); }};
}

}  // namespace yax
