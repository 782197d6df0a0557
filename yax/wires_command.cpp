#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/lengths.h"
#include "formats/bond_list.h"
#include "formats/length_table.h"
#include "model/numbers.h"
#include "model/text.h"
#include "yax/command_list.h"
#include "yax/options/opened_package.h"
#include "yax/options/option_text.h"
#include "yax/options/unit_option.h"
#include "yax/output.h"

namespace yax {

namespace {

struct WiresOptions {
  PackageOptions Package;
  std::string Output = "-";
  std::string Format = "csv";
  bool Json = false;
  bool Summary = false;
  std::optional<float> Longest, Widest;

  std::string UnitName() const { return Package.Unit ? Package.Unit->Name : "units"; }
};

/// Reports every row above a limit.
Status Judge(const OpenedPackage& opened, const std::vector<analysis::WireRow>& rows,
             const WiresOptions& options) {
  Status status = Status::Done;
  const auto judge = [&](const analysis::WireRow& row, const char* what, double value,
                         const std::string& unit, const std::optional<float>& limit) {
    // Compare the values as written, so that a value that shows as the limit is within it.
    if (!limit || !(static_cast<float>(value) > *limit)) return;
    status = Status::Findings;
    Complain({options.Package.File, opened.Lines.Of(row.Place)},
             "the " + std::string(what) + " of " + QuotedRecordName(opened.Package, row.Place) + " is " +
                 model::GeneralText(static_cast<float>(value)) + " " + unit + ", over the limit of " +
                 model::GeneralText(*limit),
             "move its pad or its end");
  };
  for (const analysis::WireRow& row : rows) {
    judge(row, "length", row.Length, options.UnitName(), options.Longest);
    judge(row, "angle", row.Angle, "degrees", options.Widest);
  }
  return status;
}

std::string TextOf(const OpenedPackage& opened, const std::vector<analysis::WireLoop>& loops,
                   const std::vector<analysis::WireRow>& rows, const WiresOptions& options) {
  if (options.Format == "bond-list") return formats::BondList({opened.Package, opened.Lines, loops, rows});
  if (options.Format == "net-list") return formats::NetList({opened.Package, opened.Lines, loops, rows});
  const std::vector<analysis::WireGroup> groups = analysis::GroupsOf(rows);
  if (options.Json) return formats::WiresJson(options.Summary ? nullptr : &rows, groups, options.UnitName());
  return options.Summary ? formats::GroupsCsv(groups, options.UnitName())
                         : formats::WiresCsv(rows, options.UnitName());
}

Status Wires(const WiresOptions& options) {
  if (options.Format != "csv" && (options.Json || options.Summary))
    throw Unusable(CommandLine(), "--json and --summary cannot be used with --format " + options.Format,
                   "remove them");
  const OpenedPackage opened(options.Package);
  const std::vector<analysis::WireLoop> loops = opened.Loops();
  const std::vector<analysis::WireRow> rows = analysis::MeasureLengths(opened.Package, loops);
  WriteOutput(options.Output, TextOf(opened, loops, rows, options));
  return Judge(opened, rows, options);
}

void AddLimit(CLI::App& command, const char* name, const char* unit, const char* description,
              std::optional<float>& limit) {
  const auto take = [name, &limit](const std::string& text) { limit = NumberOf(name, text); };
  command.add_option_function<std::string>(name, take, description)->type_name(unit);
}

}  // namespace

Command AddWires(CLI::App& program) {
  CLI::App* const command = program.add_subcommand("wires", "List the wires with their lengths and angles");
  const auto options = std::make_shared<WiresOptions>();
  AddPackageOption(*command, options->Package);
  command->add_option("-o,--output", options->Output, "Output file; - for standard output (the default)")
      ->type_name("FILE");
  command
      ->add_option("--format", options->Format,
                   "csv (the default), or the tables of assembly houses: bond-list, net-list")
      ->check(CLI::IsMember(std::vector<std::string>{"csv", "bond-list", "net-list"}));
  command->add_flag("--json", options->Json, "Write wires and summary as JSON instead of CSV");
  command->add_flag("--summary", options->Summary, "Write only a summary per tier and net type");
  AddUnitOption(*command, "Length unit of the file, for the columns' names; does not convert values",
                options->Package.Unit);
  AddLimit(*command, "--limit-length", "UNITS", "Report wires whose loop is longer", options->Longest);
  AddLimit(*command, "--limit-angle", "DEGREES", "Report wires with a larger angle to their edge's normal",
           options->Widest);
  AddLoopOptions(*command, options->Package.Loops);
  AddWireOptions(*command, options->Package.Wires);
  return {command, [options] { return Wires(*options); }};
}

}  // namespace yax
