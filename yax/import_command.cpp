#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "import/argument_error.h"
#include "import/chip_import.h"
#include "import/package_generator.h"
#include "import/source_file.h"
#include "model/reader/package_writer.h"
#include "model/text.h"
#include "yax/command_list.h"
#include "yax/help_format.h"
#include "yax/options/recipe.h"
#include "yax/options/text_file.h"
#include "yax/options/unit_option.h"
#include "yax/output.h"

namespace yax {

namespace {

/// The options as text, and which of them came from a recipe.
struct ImportOptions {
  std::string Output, Recipe;
  std::string Die, DieHeight, Package, Macro, Pads, PadMin = "20", PadAspect = "2", PadSize, DieSize;
  std::vector<std::string> Lefs, Exceptions, Unused;
  std::string Rotate = "0", Offset, Bonds = "order", Land, Power, Ground;
  std::optional<analysis::LengthUnit> Unit = analysis::UnitNamed("mm");
  std::set<std::string> FromRecipe;
};

/// Ends the command with a message about an option's value.
[[noreturn]] void Refuse(const ImportOptions& options, const std::string& option, const std::string& what,
                         const std::string& advice) {
  if (options.FromRecipe.contains(option)) throw Unusable({options.Recipe}, option + ": " + what, advice);
  throw Unusable(CommandLine(), "--" + option + ": " + what, advice);
}

/// The names of options whose values are paths.
bool IsPath(const std::string& key) { return key == "output" || key == "die" || key == "lef"; }

std::string FromFolder(const std::filesystem::path& folder, const std::string& path) {
  return path == "-" ? path : (folder / path).string();
}

/// Paths in a recipe are relative to the recipe's folder, also where a value may be a file or something else.
std::string Located(const std::string& key, const std::string& value, const std::filesystem::path& folder) {
  if (IsPath(key)) return FromFolder(folder, value);
  if (key == "package" && !importer::IsOutline(value)) return FromFolder(folder, value);
  if (key == "bonds" && value != "order" && value != "names" && value != "none")
    return FromFolder(folder, value);
  return value;
}

void TakeItem(CLI::App& command, const RecipeItem& item, ImportOptions& options) {
  const std::string& file = options.Recipe;
  CLI::Option* const option = command.get_option_no_throw("--" + item.Key);
  if (option == nullptr || item.Key == "recipe" || item.Key == "help" || item.Key == "version")
    throw Unusable({file}, "unknown key " + model::Quoted(item.Key),
                   "see yax import --help for the options' names");
  // The command line overrides the recipe.
  if (option->count() > 0) return;
  // An empty list sets nothing.
  if (item.Values.empty() && option->get_items_expected_max() > 1) return;
  if (item.Values.size() != 1 && option->get_items_expected_max() == 1)
    throw Unusable({file}, item.Key + ": it takes one value", "put a text with commas or blanks in quotes");
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  for (const std::string& value : item.Values) option->add_result(Located(item.Key, value, folder));
  try {
    option->run_callback();
  } catch (const CLI::ParseError& error) {
    std::string what = MistakeInValues(*option, error);
    if (what.empty()) what = error.what();
    // The message begins with the option's name, but a recipe has keys without dashes.
    throw Unusable({file}, what.starts_with("--" + item.Key) ? what.substr(2) : item.Key + ": " + what,
                   "see yax import --help");
  }
  options.FromRecipe.insert(item.Key);
}

void TakeRecipe(CLI::App& command, ImportOptions& options) {
  if (options.Recipe.empty()) return;
  for (const RecipeItem& item : ReadRecipe(TextOf(options.Recipe), options.Recipe))
    TakeItem(command, item, options);
}

/// Converts the texts of options to values; messages name the option.
class Values {
 public:
  explicit Values(const ImportOptions& options) : options_(options) {}

  double Number(const std::string& option, const std::string& text) const {
    const std::optional<double> number = importer::NumberIn(text);
    if (!number) Refuse(options_, option, model::Quoted(text) + " is not a number", "give one such as 0.28");
    return *number;
  }
  double Above0(const std::string& option, const std::string& text) const {
    const double number = Number(option, text);
    if (!(number > 0.0))
      Refuse(options_, option, model::Quoted(text) + " is not above 0", "give one such as 0.28");
    return number;
  }
  double AtLeast(const std::string& option, const std::string& text, int least) const {
    const double number = Number(option, text);
    if (!(number >= least))
      Refuse(options_, option, model::Quoted(text) + " is below " + std::to_string(least),
             "give " + std::to_string(least) + " or more");
    return number;
  }
  glm::dvec2 Size(const std::string& option, const std::string& text) const {
    const std::optional<glm::dvec2> size = importer::SizeIn(text);
    if (!size)
      Refuse(options_, option, model::Quoted(text) + " is not two lengths above 0",
             "give two such as 3.6x5.2");
    return *size;
  }
  glm::dvec2 Place(const std::string& option, const std::string& text) const {
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos)
      Refuse(options_, option, model::Quoted(text) + " is not X,Y", "give two lengths such as 0.1,-0.2");
    return {Number(option, text.substr(0, comma)), Number(option, text.substr(comma + 1))};
  }
  std::regex Pattern(const std::string& option, const std::string& text, std::regex::flag_type flags) const {
    try {
      if (text.size() <= model::kMostForRegex) return std::regex(text, flags);
    } catch (const std::regex_error&) {
    }
    Refuse(options_, option, model::Quoted(text) + " is not a regular expression", "correct it");
  }

 private:
  const ImportOptions& options_;
};

importer::BondRequest BondsOf(const ImportOptions& options, const Values& values, double unit) {
  importer::BondRequest bonds{.Exceptions = options.Exceptions, .Unused = options.Unused};
  if (options.Bonds == "order") {
    bonds.Plan = importer::BondPlan::Order;
  } else if (options.Bonds == "names") {
    bonds.Plan = importer::BondPlan::Names;
  } else if (options.Bonds == "none") {
    bonds.Plan = importer::BondPlan::None;
  } else {
    bonds.Plan = importer::BondPlan::Table;
    bonds.TableFile = options.Bonds;
  }
  if (!options.Land.empty()) {
    bonds.Land = values.AtLeast("land", options.Land, 0) * unit;
  }
  return bonds;
}

importer::ImportRequest RequestOf(const ImportOptions& options) {
  const Values values(options);
  for (const auto& [option, text] :
       {std::pair("output", &options.Output), std::pair("die", &options.Die),
        std::pair("die-height", &options.DieHeight), std::pair("package", &options.Package)})
    if (text->empty())
      throw Unusable(CommandLine(), std::string("--") + option + " is missing",
                     "give it, or a recipe that does");
  constexpr auto kRules = std::regex::ECMAScript;
  importer::ImportRequest request;
  request.Unit = options.Unit->Millimetres;
  request.UnitName = options.Unit->Name;
  request.Chip.File = options.Die;
  request.Chip.LefFiles = options.Lefs;
  request.Chip.Macro = options.Macro;
  request.Chip.TableUnit = request.Unit;
  request.Chip.Rule.Least = values.AtLeast("pad-min", options.PadMin, 0) / 1000.0;
  request.Chip.Rule.Aspect = values.AtLeast("pad-aspect", options.PadAspect, 1);
  if (!options.Pads.empty()) request.Chip.Rule.Names = values.Pattern("pads", options.Pads, kRules);
  if (!options.PadSize.empty())
    request.Chip.PadSize = values.Size("pad-size", options.PadSize) * request.Unit;
  if (!options.DieSize.empty())
    request.Chip.DieSize = values.Size("die-size", options.DieSize) * request.Unit;
  request.Height = values.Above0("die-height", options.DieHeight) * request.Unit;
  request.Package = options.Package;
  request.Degrees = values.Number("rotate", options.Rotate);
  if (!options.Offset.empty()) request.Offset = values.Place("offset", options.Offset) * request.Unit;
  request.Bonds = BondsOf(options, values, request.Unit);
  if (!options.Power.empty())
    request.Nets.Power = values.Pattern("power", options.Power, kRules | std::regex::icase);
  if (!options.Ground.empty())
    request.Nets.Ground = values.Pattern("ground", options.Ground, kRules | std::regex::icase);
  return request;
}

/// Writes the package and its side file of net types, both or neither. Standard output gets no side file.
void Write(const std::string& output, const model::Package& package) {
  const std::string text = model::reader::PackageText(package);
  if (IsStream(output)) return WriteOutput(output, text);
  const std::string netTypes = model::reader::NetTypesText(package);
  WriteOutputs({{output, text}, {output + ".vu", netTypes}});
}

Status Import(CLI::App& command, ImportOptions& options) {
  TakeRecipe(command, options);
  const importer::ImportRequest request = RequestOf(options);
  importer::Imported imported;
  try {
    imported = importer::ImportChip(request);
  } catch (const importer::ArgumentError& error) {
    Refuse(options, error.Option, error.What, error.Advice);
  }
  Write(options.Output, imported.Made.Package);
  const std::string output = options.Output == "-" ? "standard output" : options.Output;
  for (const importer::SourceNote& note : imported.Notes) Complain({note.File}, "note: " + note.Text, "");
  for (const std::string& finding : imported.Made.Findings) Complain({output}, "finding: " + finding, "");
  if (IsStream(options.Output)) {
    std::fprintf(stderr, "%s\n", imported.Made.Summary.c_str());
  } else {
    WriteOutput("-", imported.Made.Summary + "\n");
  }
  return imported.Made.Findings.empty() ? Status::Done : Status::Findings;
}

void AddDieOptions(CLI::App& command, ImportOptions& options) {
  const auto add = [&command](const char* name, auto& value, const char* type, const char* description) {
    return command.add_option(name, value, description)->type_name(type);
  };
  add("--die", options.Die, "FILE", "The chip: .def, .def.gz, .lef, or a table of pads (.csv, .tsv, .txt)");
  add("--die-height", options.DieHeight, "H", "The die's height (required)");
  add("--die-size", options.DieSize, "WxL", "The cut die (default: DIEAREA, or the macro's SIZE)");
  add("--lef", options.Lefs, "FILE", "LEF of the pad cells that a DEF places; may be given several times");
  add("--macro", options.Macro, "NAME", "The macro of a .lef that is the die");
  add("--pads", options.Pads, "REGEX", "Use only pins, cells or macros with these names as pads");
  add("--pad-min", options.PadMin, "UM", "Least length of a pad's sides in micrometres (default: 20)");
  add("--pad-aspect", options.PadAspect, "R", "Largest ratio of a pad's length to its width (default: 2)");
  add("--pad-size", options.PadSize, "WxH", "The pads' opening, if the drawn shape is only a mark");
  add("--rotate", options.Rotate, "", "Turn the die in the package, counter-clockwise (default: 0)")
      ->check(CLI::IsMember(std::vector<std::string>{"0", "90", "180", "270"}));
  add("--offset", options.Offset, "X,Y", "Move the die in the package, after --rotate");
}

void AddBondOptions(CLI::App& command, ImportOptions& options) {
  const auto add = [&command](const char* name, auto& value, const char* type, const char* description) {
    return command.add_option(name, value, description)->type_name(type);
  };
  add("--package", options.Package, "FILE",
      "The leads: qfn:N,body=WxL,pitch=P,lead=LENGTHxWIDTH,paddle=WxL, or the same with qfp: and "
      "lead=WIDTH,tip=D, "
      "a .kicad_mod, BOARD.kicad_pcb:REFERENCE, or a table of fingers");
  add("--bonds", options.Bonds, "FILE",
      "Which pad is bonded to which lead: order (the default), names, none, or a table");
  add("--bond", options.Exceptions, "PAD=LEAD",
      "One bond; overrides --bonds; PAD=PADDLE bonds to the paddle, PAD= leaves the pad free; may be "
      "repeated");
  add("--unused", options.Unused, "LIST", "Leads that stay free, separated by commas")->delimiter(',');
  add("--land", options.Land, "D",
      "Distance from a lead's inner end to its wire (default: half the lead, at most 0.2 mm)");
  add("--power", options.Power, "REGEX",
      "Names of power nets, if the chip's file gives no type (default: names that begin like VDD, VCC)");
  add("--ground", options.Ground, "REGEX",
      "Names of ground nets, tried before --power (default: names that begin like VSS, GND)");
  AddUnitOption(command,
                "The unit of lengths in these options and in tables, and of the package (default: mm)",
                options.Unit);
}

}  // namespace

Command AddImport(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("import", "Make a package from a chip's files and a package's leads");
  const auto options = std::make_shared<ImportOptions>();
  command
      ->add_option("-o,--output", options->Output,
                   "The package, with its net types in FILE.vu; - for standard output")
      ->type_name("FILE");
  command
      ->add_option("--recipe", options->Recipe,
                   "A file with these options, one per line; the command line overrides it")
      ->type_name("FILE");
  AddDieOptions(*command, *options);
  AddBondOptions(*command, *options);
  return {command, [options, command] { return Import(*command, *options); }};
}

}  // namespace yax
