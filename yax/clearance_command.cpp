#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "analysis/wire_loops.h"
#include "formats/clearance_report.h"
#include "model/package.h"
#include "yax/commands.h"
#include "yax/options/camera.h"
#include "yax/options/loops.h"
#include "yax/options/nets.h"
#include "yax/options/option_text.h"
#include "yax/options/package.h"
#include "yax/options/picture.h"
#include "yax/options/unit.h"
#include "yax/output.h"
#include "yax/pictures/package_picture.h"

namespace yax {

namespace {

struct ClearanceOptions {
  PackageOptions package;
  std::string output = "-";
  bool json = false;
  bool all = false;
  std::optional<double> limit;
  std::string pictureFile;  ///< empty for none
  UnitOptions unit;
  NetOptions nets;
  LoopOptions loops;
  PictureOptions picture;
  CameraOptions camera;
};

model::WireSelection OffendersOf(const formats::ClearanceReport& report) {
  model::WireSelection selection{.Shown = true, .Names = {}};
  for (const formats::ClearanceRow& row : report.Rows)
    if (row.Kind != formats::Finding::None) selection.Names.insert({row.Name, row.Other});
  return selection;
}

Status Clearance(const ClearanceOptions& options) {
  if (!options.pictureFile.empty()) PictureFormatOf(options.pictureFile);
  CheckCamera(options.camera);
  model::Package package = LoadPackage(options.package);
  const LengthUnit unit = UnitOf(options.unit, package);
  const model::WireBondSettings settings = SettingsOf(options.loops, package);
  const model::WireShapes shapes = ShapesOf(options.loops.Tiers, package);
  const std::vector<analysis::WireLoop> loops = analysis::WireLoopsOf(package, settings, shapes);
  const formats::ClearanceReport report = formats::MeasureClearances(
      {loops, options.nets, unit, WireDiameterIn(unit, settings), options.limit, options.all});
  if (!options.pictureFile.empty()) {
    const model::WireSelection offenders = OffendersOf(report);
    WriteOutput(options.pictureFile,
                PictureBytes({package, settings, offenders, options.camera, options.picture, &shapes},
                             PictureFormatOf(options.pictureFile)));
  }
  WriteOutput(options.output, options.json ? formats::JsonOf(report) : formats::ColumnsOf(report));
  const bool clear =
      report.Count(formats::Finding::Touching) == 0 && report.Count(formats::Finding::BelowLimit) == 0;
  return clear ? Status::Done : Status::Findings;
}

}  // namespace

Command AddClearance(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("clearance", "Measure how close the wires of different nets come");
  const auto options = std::make_shared<ClearanceOptions>();
  AddPackageOption(*command, options->package);
  command->add_option("-o,--output", options->output, "Where the answer goes (default: -, standard output)")
      ->type_name("FILE");
  command->add_flag("--json", options->json, "Answer in JSON instead of columns");
  command
      ->add_option_function<std::string>(
          "--limit", [options](const std::string& text) { options->limit = DoubleOf("--limit", text); },
          "Pairs with less room than this, in file units, are findings too, not only those that touch")
      ->type_name("UNITS");
  command->add_flag("--all", options->all,
                    "List every finding, not only each wire's pair with its nearest other one");
  command
      ->add_option("--picture", options->pictureFile,
                   "Draw the package with only the wires of the findings, .png or .bmp")
      ->type_name("FILE");
  AddUnitOption(*command, options->unit);
  AddNetOptions(*command, options->nets);
  AddLoopOptions(*command, options->loops);
  AddPictureOptions(*command, options->picture);
  AddCameraOptions(*command, options->camera);
  return {command, [options] { return Clearance(*options); }};
}

}  // namespace yax
