#include <glib.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "analysis/line_check.h"
#include "analysis/wire_loops.h"
#include "analysis/wire_rows.h"
#include "model/faults.h"
#include "model/files.h"
#include "model/text.h"
#include "sheet/bonding_diagram.h"
#include "sheet/measured_data.h"
#include "sheet/title_fields.h"
#include "yax/commands.h"
#include "yax/options/loops.h"
#include "yax/options/option_text.h"
#include "yax/options/package.h"
#include "yax/options/unit.h"
#include "yax/output.h"

namespace yax {

namespace {

struct DiagramOptions {
  PackageOptions package;
  std::string output;
  std::string paper = "a3";
  std::string scale = "fit";
  std::string split = "none";
  bool table = false;
  std::string titleFile, notesFile;
  std::vector<std::string> settings;
  UnitOptions unit;
  LoopOptions loops;
};

enum class Format { Pdf, Svg, Dxf };

Format FormatOf(const std::string& output) {
  const std::string ending = model::UpperCase(std::filesystem::path(output).extension().string());
  if (output == "-" || ending == ".PDF") return Format::Pdf;
  if (ending == ".SVG") return Format::Svg;
  if (ending == ".DXF") return Format::Dxf;
  throw Unusable({.File = output}, "unknown format of a diagram", "use .pdf, .svg or .dxf");
}

sheet::Paper PaperOf(const std::string& text) {
  for (const sheet::Paper& paper : sheet::NamedPapers())
    if (paper.Name == text) return paper;
  const std::size_t by = text.find('x');
  if (by == std::string::npos)
    throw Unusable(CommandLine(), "--sheet '" + text + "' is no sheet",
                   "use a4, a3, a2, letter, tabloid, or WxH in millimetres");
  const sheet::Paper paper{"", DoubleOf("--sheet", text.substr(0, by)), DoubleOf("--sheet", text.substr(by + 1))};
  // A PDF page ends at 200 inches.
  if (!(paper.Width >= 20.0 && paper.Height >= 20.0 && paper.Width <= 5080.0 && paper.Height <= 5080.0))
    throw Unusable(CommandLine(), "--sheet '" + text + "' is out of range", "give 20 to 5080 mm for each side");
  return paper;
}

std::optional<double> ScaleOf(const std::string& text) {
  if (text == "fit") return std::nullopt;
  const double scale = DoubleOf("--scale", text);
  if (!(scale > 0.0)) throw Unusable(CommandLine(), "--scale is not above 0", "give fit, or a number such as 20");
  return scale;
}

std::string TextOf(const std::string& file) {
  if (!model::FileExists(file)) throw Unusable({.File = file}, "there is no such file", "give the path of a text file");
  try {
    return model::ReadWholeFile(file);
  } catch (const model::Fault& fault) {
    throw Unusable({.File = file}, fault.what(), "give the path of a text file");
  }
}

sheet::TitleFields TitleOf(const DiagramOptions& options) {
  sheet::TitleFields fields;
  Place place{.File = options.titleFile};
  try {
    if (!options.titleFile.empty()) sheet::ReadTitleFields(TextOf(options.titleFile), fields);
    place = CommandLine();
    for (const std::string& setting : options.settings) sheet::SetTitleField(setting, fields);
  } catch (const sheet::TitleFault& fault) {
    place.Line = fault.Line;
    throw Unusable(place, (fault.Line == 0 ? "--set: " : "") + std::string(fault.what()), fault.Advice);
  }
  return fields;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> list;
  model::Lines lines(text);
  for (std::string_view line; lines.Next(line);) list.emplace_back(line.substr(0, line.find_last_not_of("\r\n \t") + 1));
  return list;
}

std::string DigestOf(const std::string& file) {
  const std::string bytes = TextOf(file);
  gchar* const digest = g_compute_checksum_for_data(
      G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(bytes.data()), bytes.size());
  const std::string text(digest, 12);
  g_free(digest);
  return text;
}

template <class Bond>
std::string LeadOf(const Bond& bond) {
  if constexpr (requires { bond.Lead; }) return bond.Lead;
  return "";
}

/// All wires, numbered in the order of the file.
std::vector<sheet::DiagramWire> WiresOf(const model::Package& package, const model::WireBondSettings& settings,
                                        const model::WireShapes& shapes, const analysis::PackageLines& lines) {
  if (package.Technology != "WIRE_BOND") return {};
  const std::vector<analysis::WireRow> rows = analysis::WireRows(package, {settings, shapes, {}}, lines);
  const std::vector<analysis::DrawnWire> drawn = analysis::DrawnWires(package, settings, shapes, {});
  std::vector<sheet::DiagramWire> wires;
  const double unit = double(package.UnitScale);
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const model::PackagePoint& from = drawn[k].Path.front();
    const model::PackagePoint& to = drawn[k].Path.back();
    sheet::DiagramWire wire{.Place = drawn[k].Place,
                            .Number = rows[k].Line,
                            .Name = drawn[k].Name,
                            .Tier = rows[k].Tier,
                            .NetType = rows[k].NetType,
                            .From = glm::dvec2(from.X, from.Y) * unit,
                            .To = glm::dvec2(to.X, to.Y) * unit,
                            .PlanLength = rows[k].PlanLength,
                            .Length = rows[k].Length,
                            .Angle = rows[k].Angle};
    if (wire.Place.Table == model::RecordTable::Bonds) wire.Lead = LeadOf(package.Bonds[wire.Place.Number]);
    if (wire.Place.Table == model::RecordTable::SDBonds) wire.Lead = LeadOf(package.SDBonds[wire.Place.Number]);
    wires.push_back(std::move(wire));
  }
  std::stable_sort(wires.begin(), wires.end(), [](const auto& a, const auto& b) { return a.Number < b.Number; });
  for (std::size_t k = 0; k < wires.size(); ++k) wires[k].Number = k + 1;
  return wires;
}

Status Diagram(const DiagramOptions& options) {
  const Format format = FormatOf(options.output);
  const sheet::Paper paper = PaperOf(options.paper);
  const std::optional<double> scale = ScaleOf(options.scale);
  const sheet::TitleFields title = TitleOf(options);
  std::vector<std::string> notes;
  if (!options.notesFile.empty()) notes = LinesOf(TextOf(options.notesFile));
  formats::CheckReport unused{.File = options.package.File};
  analysis::LineCheck lines(unused);
  const model::Package package = LoadPackage(options.package, &lines);
  const LengthUnit unit = UnitOf(options.unit, package);
  const model::WireBondSettings settings = SettingsOf(options.loops, package);
  const std::vector<sheet::DiagramWire> wires =
      WiresOf(package, settings, ShapesOf(options.loops.Tiers, package), lines.Lines());
  const double millimetres = unit.Metres * 1e3;
  const bool inMillimetres = format == Format::Dxf;
  const std::string shown = inMillimetres ? "mm" : unit.Name;
  const double numberScale = inMillimetres ? millimetres : 1.0;
  const std::vector<sheet::Fact> facts =
      sheet::MeasuredData({package, wires, settings, shown, numberScale, "", ""});
  const std::vector<std::string> findings;
  try {
    const sheet::Drawing drawing = sheet::BondingDiagram(
        {.Package = package,
         .Wires = wires,
         .Facts = facts,
         .Notes = notes,
         .Findings = findings,
         .Title = title,
         .FileName = std::string(model::FileNameOf(options.package.File)),
         .Digest = DigestOf(options.package.File),
         .Millimetres = millimetres,
         .Unit = shown,
         .NumberScale = numberScale,
         .Paper = paper,
         .Scale = scale,
         .Into = inMillimetres              ? sheet::Split::None
                 : options.split == "tier" ? sheet::Split::Tier
                 : options.split == "none" ? sheet::Split::None
                                            : sheet::Split::NetType,
         .Table = options.table});
    WriteOutput(options.output, format == Format::Pdf   ? PdfOf(drawing)
                                : format == Format::Svg ? SvgOf(drawing)
                                                        : DxfOf(drawing));
  } catch (const sheet::DoesNotFit& fault) {
    throw Unusable({.File = options.package.File}, fault.what(), "");
  }
  return Status::Done;
}

}  // namespace

Command AddDiagram(CLI::App& program) {
  CLI::App* const command = program.add_subcommand("diagram", "Draw the bonding diagram for the assembly house");
  const auto options = std::make_shared<DiagramOptions>();
  AddPackageOption(*command, options->package);
  command->add_option("-o,--output", options->output, "The sheets, as .pdf, .svg or .dxf; - for a PDF on standard output")
      ->type_name("FILE")
      ->required();
  command->add_option("--sheet", options->paper, "Size of the sheets: a4, a3 (the default), a2, letter, tabloid, or WxH in mm")
      ->type_name("SIZE");
  command->add_option("--scale", options->scale, "fit (the default): the largest of 50 20 10 5 2 1 : 1 that fits; or N for N : 1")
      ->type_name("fit|N");
  command->add_option("--split", options->split, "A sheet for each tier or net type, the other wires in grey")
      ->check(CLI::IsMember(std::vector<std::string>{"none", "tier", "net-type"}));
  command->add_flag("--table", options->table, "Further sheets with a table of all wires");
  command->add_option("--title", options->titleFile, "What the title block says, as KEY = value lines")->type_name("FILE");
  command
      ->add_option("--set", options->settings,
                   "One field of the title block: title part package drawn checked approved date revision")
      ->type_name("KEY=TEXT")
      ->allow_extra_args(false);
  command->add_option("--notes", options->notesFile, "Text that goes onto the sheet")->type_name("FILE");
  AddUnitOption(*command, options->unit);
  AddLoopOptions(*command, options->loops);
  return {command, [options] { return Diagram(*options); }};
}

}  // namespace yax
