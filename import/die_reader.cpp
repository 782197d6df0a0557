#include "import/die_reader.h"

#include <algorithm>

#include "import/argument_error.h"
#include "import/def_reader.h"
#include "import/names.h"
#include "import/pad_table.h"
#include "import/source_file.h"
#include "import/terminals.h"
#include "model/input_error.h"
#include "model/text.h"

namespace importer {

namespace {

/// "3588 x 5188 um": in micrometres, as chip designers count.
std::string SizeText(const glm::dvec2& size) {
  const auto text = [](double millimetres) {
    std::string number = std::to_string(millimetres * 1000.0);
    number.erase(number.find_last_not_of('0') + 1);
    if (number.ends_with('.')) number.pop_back();
    return number;
  };
  return text(size.x) + " x " + text(size.y) + " um";
}

/// Converts the file's units and corner to millimetres from the die's middle.
void MoveToMiddle(std::vector<Terminal>& terminals, const glm::dvec2& middle, double unitsPerMillimetre) {
  for (Terminal& terminal : terminals)
    for (PinShape& shape : terminal.Shapes)
      shape.Place = {(shape.Place.Low - middle) / unitsPerMillimetre,
                     (shape.Place.High - middle) / unitsPerMillimetre};
}

/// Refuses options that this kind of file does not use.
void RefuseNeedless(const DieRequest& request, bool isDef, bool isLef) {
  if (!isDef && !request.LefFiles.empty())
    throw ArgumentError("lef", "only a DEF places cells of another file",
                        "remove it, or give a DEF as --die");
  if (!isLef && !request.Macro.empty())
    throw ArgumentError("macro", "only a LEF has macros", "remove it, or give a LEF as --die");
}

constexpr char kLessStrict[] = "try a smaller --pad-min, a larger --pad-aspect, or other --pads";

Die DieOf(const DieRequest& request, const std::vector<Terminal>& terminals, const glm::dvec2& ownSize,
          const char* sizeFrom) {
  Die die{.File = request.File, .Pads = PadsOf(terminals, request.Rule)};
  die.Size = request.DieSize.value_or(ownSize);
  if (!request.DieSize)
    die.Notes.push_back("the die's size is " + SizeText(ownSize) + ", from " + sizeFrom +
                        "; give the cut die with --die-size");
  return die;
}

Die DieFromDef(const DieRequest& request) {
  LefLibrary library;
  for (const std::string& lef : request.LefFiles) ReadLef(ReadSource(lef), lef, library);
  DefChip chip = ReadDef(ReadSource(request.File), request.File, library);
  const std::string found = Counted(chip.Pins, "pin", "pins") + " with " +
                            Counted(ShapeCount(chip.Terminals), "shape", "shapes") + " and " +
                            Counted(chip.Cells, "cell", "cells") + " (" +
                            std::to_string(chip.CellsInLibrary) + " of them in a --lef)";
  if (!chip.Area) {
    if (!request.DieSize)
      throw model::InputError({request.File}, "it has no DIEAREA", "give the die's size with --die-size");
    for (const Terminal& terminal : chip.Terminals)
      for (const PinShape& shape : terminal.Shapes)
        chip.Area = chip.Area ? Around(*chip.Area, shape.Place) : shape.Place;
  }
  const double units = chip.UnitsPerMicron * 1000.0;
  const Box area = chip.Area.value_or(Box{});
  MoveToMiddle(chip.Terminals, area.Middle(), units);
  Die die = DieOf(request, chip.Terminals, area.Size() / units, "DIEAREA");
  if (die.Pads.empty() && chip.Pins + chip.Cells == 0)
    throw model::InputError({request.File}, "it has neither pins nor cells", "give the DEF of the pad frame");
  if (die.Pads.empty())
    throw model::InputError({request.File}, "no pads found among " + found,
                            chip.CellsInLibrary < chip.Cells && chip.CellsInLibrary == 0
                                ? "give the LEF of the pad cells with --lef, or a smaller --pad-min"
                                : kLessStrict);
  return die;
}

const LefMacro& MacroOf(const DieRequest& request, const LefLibrary& library) {
  if (library.empty())
    throw model::InputError({request.File}, "it has no MACRO", "give the LEF of the whole chip");
  if (request.Macro.empty()) {
    if (library.size() == 1) return library.begin()->second;
    std::vector<std::string> names;
    for (const auto& [name, macro] : library) names.push_back(name);
    throw model::InputError({request.File}, "it has several macros: " + Listed(names),
                            "choose one with --macro");
  }
  const auto found = library.find(request.Macro);
  if (found == library.end())
    throw model::InputError({request.File}, "it has no macro " + model::Quoted(request.Macro),
                            "correct --macro");
  return found->second;
}

Die DieFromLef(const DieRequest& request) {
  LefLibrary library;
  ReadLef(ReadSource(request.File), request.File, library);
  const LefMacro& macro = MacroOf(request, library);
  std::vector<Terminal> pins = macro.Pins;
  const model::FilePlace place{request.File, macro.Line};
  if (pins.empty())
    throw model::InputError(place, "the macro " + model::Quoted(macro.Name) + " has no pins",
                            "give the LEF of the whole chip");
  if (!request.DieSize && !(macro.Size.x > 0.0 && macro.Size.y > 0.0))
    throw model::InputError(place, "the macro " + model::Quoted(macro.Name) + " has no SIZE",
                            "give the die's size with --die-size");
  MoveToMiddle(pins, macro.Size / 2.0, 1000.0);
  const std::size_t shapes = ShapeCount(pins);
  const std::size_t count = pins.size();
  Die die = DieOf(request, pins, macro.Size / 1000.0, "the macro's SIZE");
  if (die.Pads.empty())
    throw model::InputError(place,
                            "no pads found among " + Counted(count, "pin", "pins") + " with " +
                                Counted(shapes, "shape", "shapes"),
                            kLessStrict);
  return die;
}

void CheckSize(const Die& die) {
  if (!(die.Size.x > 0.0 && die.Size.y > 0.0))
    throw model::InputError({die.File}, "the die has no size", "give it with --die-size");
}

}  // namespace

bool EndsWith(const std::string& file, std::string_view ending) {
  return model::UpperCase(file).ends_with(ending);
}

bool IsTableFile(const std::string& file) {
  return EndsWith(file, ".CSV") || EndsWith(file, ".TSV") || EndsWith(file, ".TXT");
}

void RefuseKind(const std::string& file, const std::string& wanted) {
  for (const std::string_view workbook : {".XLSX", ".XLS", ".XLSM", ".ODS"})
    if (EndsWith(file, workbook))
      throw model::InputError({file}, "workbooks of spreadsheet programs cannot be read",
                              "save the sheet as CSV");
  throw model::InputError({file}, "its name does not end in " + wanted, "give a file of one of these kinds");
}

Die ReadDie(const DieRequest& request) {
  const bool isDef = EndsWith(request.File, ".DEF") || EndsWith(request.File, ".DEF.GZ");
  const bool isLef = EndsWith(request.File, ".LEF") || EndsWith(request.File, ".LEF.GZ");
  RefuseNeedless(request, isDef, isLef);
  Die die;
  if (isDef) {
    die = DieFromDef(request);
  } else if (isLef) {
    die = DieFromLef(request);
  } else if (IsTableFile(request.File)) {
    die = DieFromTable(request);
  } else {
    RefuseKind(request.File, ".def, .def.gz, .lef, .csv, .tsv or .txt");
  }
  CheckSize(die);
  if (request.PadSize) {
    for (DiePad& pad : die.Pads) pad.Size = *request.PadSize;
    die.OpeningsGiven = true;
  }
  return die;
}

}  // namespace importer
