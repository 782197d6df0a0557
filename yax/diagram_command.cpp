#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "analysis/rule_diagnostics.h"
#include "analysis/wire_loops.h"
#include "model/text.h"
#include "sheet/bonding_diagram.h"
#include "sheet/diagram_wires.h"
#include "sheet/measured_data.h"
#include "sheet/title_fields.h"
#include "yax/command_list.h"
#include "yax/options/option_text.h"
#include "yax/options/rule_set.h"
#include "yax/options/text_file.h"
#include "yax/output.h"

namespace yax {

namespace {

enum class DiagramFormat { Pdf, Svg, Dxf };

DiagramFormat FormatOf(const std::string& output) {
  const std::string ending = model::UpperCase(std::filesystem::path(output).extension().string());
  if (output == "-" || ending == ".PDF") return DiagramFormat::Pdf;
  if (ending == ".SVG") return DiagramFormat::Svg;
  if (ending == ".DXF") return DiagramFormat::Dxf;
  throw Unusable({.File = output}, "unknown diagram format", "use .pdf, .svg or .dxf");
}

sheet::Paper PaperOf(const std::string& text) {
  for (const sheet::Paper& paper : sheet::NamedPapers())
    if (paper.Name == text) return paper;
  const std::size_t by = text.find('x');
  if (by == std::string::npos)
    throw Unusable(CommandLine(), "--sheet " + model::Quoted(text) + " is not a sheet size",
                   "use a4, a3, a2, letter, tabloid, or WxH in millimetres");
  sheet::Paper paper{"", DoubleOf("--sheet", text.substr(0, by)), DoubleOf("--sheet", text.substr(by + 1))};
  // A PDF page ends at 200 inches.
  if (!(paper.Width >= 20.0 && paper.Height >= 20.0 && paper.Width <= 5080.0 && paper.Height <= 5080.0))
    throw Unusable(CommandLine(), "--sheet " + model::Quoted(text) + " is out of range",
                   "each side can be 20 to 5080 mm");
  return paper;
}

sheet::Split SplitOf(const std::string& text) {
  if (text == "tier") return sheet::Split::Tier;
  return text == "net-type" ? sheet::Split::NetType : sheet::Split::None;
}

std::optional<double> ScaleOf(const std::string& text) {
  if (text == "fit") return std::nullopt;
  const double scale = DoubleOf("--scale", text);
  if (!(scale > 0.0))
    throw Unusable(CommandLine(), "--scale is not above 0", "give fit, or a number such as 20");
  return scale;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> list;
  model::Lines lines(text);
  for (std::string_view line; lines.Next(line);)
    list.emplace_back(line.substr(0, line.find_last_not_of("\r\n \t") + 1));
  return list;
}

struct DiagramOptions {
  PackageOptions Package;
  std::string Output;
  DiagramFormat Format = DiagramFormat::Pdf;
  sheet::Paper Paper = PaperOf("a3");
  std::optional<double> Scale;
  sheet::Split Split = sheet::Split::None;
  bool Table = false;
  sheet::TitleFields Title;
  std::vector<std::string> Notes;
  RulesOptions Rules;
};

/// The results of the rules, for the sheet.
struct Judgement {
  std::string Rules, Verdict;
  std::vector<std::string> Lines;  ///< a line for each broken rule
  bool Keeps = true;
};

/// Judges the whole package: the choice of wires affects only the drawing.
Judgement Judge(const DiagramOptions& options, const OpenedPackage& opened,
                std::vector<sheet::DiagramWire>& wires) {
  Judgement judgement;
  if (options.Rules.File.empty()) return judgement;
  const std::vector<analysis::WireLoop> loops = opened.AllLoops();
  const analysis::RuleSet& set = options.Rules.Set;
  const analysis::RulesReport report = MeasureRules(options.Rules, opened, loops);
  judgement.Rules = set.Name.empty() ? std::string(model::FileNameOf(options.Rules.File)) : set.Name;
  std::set<model::RecordPlace> offenders;
  std::vector<std::size_t> counts(set.Rules.size());
  for (const analysis::RuleRemark& remark : report.Remarks) {
    if (!analysis::Offends(set, remark)) continue;
    judgement.Keeps = false;
    ++counts[remark.Rule];
    for (const std::size_t wire : remark.Wires) offenders.insert(loops[wire].Place);
  }
  for (std::size_t k = 0; k < counts.size(); ++k)
    if (counts[k] > 0)
      judgement.Lines.push_back(analysis::RuleText(set.Rules[k]) + ": " + std::to_string(counts[k]));
  for (sheet::DiagramWire& wire : wires) wire.Offends = offenders.contains(wire.Place);
  judgement.Verdict = judgement.Keeps ? "keeps all rules" : "does not keep all rules";
  if (report.Unmeasured.size() == set.Rules.size()) judgement.Verdict = "there is nothing to measure";
  return judgement;
}

sheet::Drawing DrawingOf(const OpenedPackage& opened, const sheet::DiagramInputs& inputs) {
  try {
    return sheet::BondingDiagram(inputs);
  } catch (const model::Fault& fault) {
    throw opened.NotDrawn(fault);
  } catch (const sheet::DoesNotFit& fault) {
    throw Unusable({.File = opened.Package.PackagePath}, fault.what(), "");
  }
}

std::string BytesOf(const sheet::Drawing& drawing, DiagramFormat format) {
  if (format == DiagramFormat::Pdf) return sheet::PdfOf(drawing);
  return format == DiagramFormat::Svg ? sheet::SvgOf(drawing) : sheet::DxfOf(drawing);
}

void ReportBoxes(const sheet::Drawing& drawing, const std::string& file) {
  const std::vector<std::string> texts = sheet::TextsWithoutGlyphs(drawing);
  if (texts.empty()) return;
  const std::size_t others = texts.size() - 1;
  Complain({file},
           "note: no font has all characters of " + model::Quoted(texts.front()) +
               (others == 0 ? "" : " and " + std::to_string(others) + " more") +
               "; missing characters appear as boxes",
           "install a font for this script");
}

Status Diagram(const DiagramOptions& options) {
  const OpenedPackage opened(options.Package);
  const analysis::LengthUnit unit = opened.Unit();
  const std::vector<analysis::WireLoop> loops = opened.Loops();
  std::vector<sheet::DiagramWire> wires = sheet::DiagramWiresOf(opened.Package, loops, opened.Lines);
  const Judgement judgement = Judge(options, opened, wires);
  // DXF is true to size: its numbers are in the drawing's unit, and it has the plan once.
  const bool trueToSize = options.Format == DiagramFormat::Dxf;
  const std::string shown = trueToSize ? "mm" : unit.Name;
  const double numberScale = trueToSize ? unit.Millimetres : 1.0;
  const std::vector<sheet::Fact> facts = sheet::MeasuredData(
      {opened.Package, wires, opened.Settings, shown, numberScale, judgement.Rules, judgement.Verdict});
  const sheet::Drawing drawing =
      DrawingOf(opened, {.Package = opened.Package,
                         .Wires = wires,
                         .Facts = facts,
                         .Notes = options.Notes,
                         .Findings = judgement.Lines,
                         .Title = options.Title,
                         .FileName = std::string(model::FileNameOf(options.Package.File)),
                         .Digest = DigestOf(options.Package.File),
                         .Millimetres = unit.Millimetres,
                         .Unit = shown,
                         .NumberScale = numberScale,
                         .Paper = options.Paper,
                         .Scale = options.Scale,
                         .Into = trueToSize ? sheet::Split::None : options.Split,
                         .Table = options.Table});
  WriteOutput(options.Output, BytesOf(drawing, options.Format));
  if (options.Format == DiagramFormat::Pdf) ReportBoxes(drawing, options.Package.File);
  return judgement.Keeps ? Status::Done : Status::Findings;
}

void AddSheetOptions(CLI::App& command, DiagramOptions& options) {
  command
      .add_option_function<std::string>(
          "--sheet", [&options](const std::string& text) { options.Paper = PaperOf(text); },
          "Sheet size: a4, a3 (the default), a2, letter, tabloid, or WxH in mm")
      ->type_name("SIZE");
  command
      .add_option_function<std::string>(
          "--scale", [&options](const std::string& text) { options.Scale = ScaleOf(text); },
          "fit (the default): the largest of 50 20 10 5 2 1 : 1 that fits; or N for N : 1")
      ->type_name("fit|N");
  command
      .add_option_function<std::string>(
          "--split", [&options](const std::string& text) { options.Split = SplitOf(text); },
          "A sheet for each tier or net type, the other wires in grey")
      ->check(CLI::IsMember(std::vector<std::string>{"none", "tier", "net-type"}));
  command.add_flag("--table", options.Table, "Further sheets with a table of all wires");
}

void AddTextOptions(CLI::App& command, DiagramOptions& options) {
  AddFileOption(
      command, "--title", "Fields of the title block, as KEY = value lines",
      [&options](const std::string& file) { sheet::ReadTitleFields(file, TextOf(file), options.Title); });
  // CLI11 takes options in the order in which they are added, so a field set singly overrides the file's.
  const auto set = [&options](const std::vector<std::string>& settings) {
    for (const std::string& setting : settings) sheet::SetTitleField(CommandLine(), setting, options.Title);
  };
  command
      .add_option_function<std::vector<std::string>>(
          "--set", set,
          "One field of the title block: title part package drawn checked approved date revision")
      ->type_name("KEY=TEXT")
      ->allow_extra_args(false);
  AddFileOption(command, "--notes", "A text file to print on the sheet",
                [&options](const std::string& file) { options.Notes = LinesOf(TextOf(file)); });
}

}  // namespace

Command AddDiagram(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("diagram", "Draw the bonding diagram for the assembly house");
  const auto options = std::make_shared<DiagramOptions>();
  AddPackageOption(*command, options->Package);
  command
      ->add_option_function<std::string>(
          "-o,--output",
          [options](const std::string& file) {
            options->Output = file;
            options->Format = FormatOf(file);
          },
          "The sheets, as .pdf, .svg or .dxf; - for a PDF on standard output")
      ->type_name("FILE")
      ->required();
  AddSheetOptions(*command, *options);
  AddTextOptions(*command, *options);
  AddRulesOptions(*command, options->Rules);
  AddUnitOption(*command, options->Package);
  AddLoopOptions(*command, options->Package.Loops);
  AddWireOptions(*command, options->Package.Wires);
  return {command, [options] { return Diagram(*options); }};
}

}  // namespace yax
