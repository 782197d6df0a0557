#include "import/def_reader.h"

#include <algorithm>
#include <array>

#include "import/lef_def_words.h"
#include "import/orientation.h"
#include "model/input_error.h"
#include "model/text.h"

namespace importer {

namespace {

/// The place and orientation of a pin or cell.
struct Placement {
  glm::dvec2 At{0.0};
  Orientation Turn = Orientation::N;
};

/// A placed cell of the library.
struct Cell {
  std::string Name;
  const LefMacro* Macro;
  Placement Place;
};

class DefReader {
 public:
  DefReader(std::string_view text, const std::string& file, const LefLibrary& library)
      : file_(file), words_(text, file), library_(library) {}

  DefChip Read();

 private:
  bool ReadSection();
  void ReadUnits();
  void ReadArea();
  template <class ReadItem>
  void ReadItems(std::string_view section, ReadItem&& readItem);
  void ReadPin();
  void ReadPinPart(Terminal& pin);
  void ReadShape(bool polygon);
  void ClosePort(Terminal& pin);
  void ReadComponent();
  void AddPinsOf(const Cell& cell);
  Placement TakePlacement();
  glm::dvec2 TakePoint();
  bool IsPlacement() const { return words_.Is("PLACED") || words_.Is("FIXED") || words_.Is("COVER"); }

  const std::string& file_;
  LefDefWords words_;
  const LefLibrary& library_;
  DefChip chip_;
  std::vector<Cell> cells_;
  glm::dvec2 point_{0.0};       ///< the last point, which a "*" repeats
  std::vector<PinShape> port_;  ///< relative to the pin's place
  std::optional<Placement> place_;
};

/// Sections that end in "END" and their name.
constexpr std::array<std::string_view, 14> kOtherSections = {
    "PROPERTYDEFINITIONS", "VIAS",       "STYLES", "NONDEFAULTRULES", "REGIONS",
    "PINPROPERTIES",       "BLOCKAGES",  "SLOTS",  "FILLS",           "NETS",
    "SPECIALNETS",         "SCANCHAINS", "GROUPS", "CONSTRAINTS"};

DefChip DefReader::Read() {
  while (!ReadSection()) {
  }
  if (chip_.UnitsPerMicron == 0.0)
    throw model::InputError({file_}, "it has no line UNITS DISTANCE MICRONS",
                            "add it, so that lengths have a unit");
  for (const Cell& cell : cells_) AddPinsOf(cell);
  return std::move(chip_);
}

/// Reads or passes over the next section or statement; true at the end of the design.
bool DefReader::ReadSection() {
  words_.Take();
  if (words_.Is("PINS")) {
    ReadItems("PINS", [this] { ReadPin(); });
    return false;
  }
  if (words_.Is("COMPONENTS")) {
    ReadItems("COMPONENTS", [this] { ReadComponent(); });
    return false;
  }
  if (words_.Is("HISTORY")) {
    words_.SkipText();
    return false;
  }
  if (words_.Is("BEGINEXT")) {
    while (!words_.Is("ENDEXT")) words_.Take();
    return false;
  }
  for (const std::string_view section : kOtherSections) {
    if (!words_.Is(section)) continue;
    words_.SkipSection(section);
    return false;
  }
  if (words_.Is("END")) {
    words_.Take();
    return words_.Is("DESIGN");
  }
  if (words_.Is("UNITS")) ReadUnits();
  if (words_.Is("DIEAREA")) ReadArea();
  words_.SkipStatement();
  return false;
}

void DefReader::ReadUnits() {
  words_.TakeKeyword("DISTANCE");
  words_.TakeKeyword("MICRONS");
  chip_.UnitsPerMicron = words_.TakeNumber();
  if (!(chip_.UnitsPerMicron >= 1.0))
    words_.Fail("there is less than 1 unit per micron", "give 100 to 20000 units");
}

glm::dvec2 DefReader::TakePoint() {
  words_.TakeKeyword("(");
  for (double* const coordinate : {&point_.x, &point_.y})
    if (words_.Take() != "*") *coordinate = words_.Number();
  // Some points have a third number, an extension.
  while (words_.Take() != ")") words_.Number();
  return point_;
}

void DefReader::ReadArea() {
  Outline outline;
  while (words_.Take() != ";") {
    words_.PutBack();
    outline.Add(TakePoint());
  }
  if (outline.Count() < 2) words_.Fail("DIEAREA has fewer than two points", "give two corners or an outline");
  chip_.Area = outline.Bounds();
}

/// The items of a section, each of which begins with "-" and ends with ";".
template <class ReadItem>
void DefReader::ReadItems(std::string_view section, ReadItem&& readItem) {
  words_.SkipStatement();
  words_.LetQuotesSpanLines(true);
  for (;;) {
    words_.Take();
    if (words_.Word() == "-") {
      readItem();
    } else if (words_.Is("END")) {
      words_.TakeKeyword(section);
      return words_.LetQuotesSpanLines(false);
    } else {
      words_.Fail(model::Quoted(words_.Word()) + " does not begin an item of " + std::string(section),
                  "begin each item with '-' and end it with ';'");
    }
  }
}

void DefReader::ReadPin() {
  Terminal pin{.Name = words_.TakeName()};
  ++chip_.Pins;
  while (words_.Word() != ";") {
    words_.Take();
    if (words_.Word() != "+") continue;
    words_.Take();
    ReadPinPart(pin);
  }
  ClosePort(pin);
  chip_.Terminals.push_back(std::move(pin));
}

/// Reads the part of a pin after a "+".
void DefReader::ReadPinPart(Terminal& pin) {
  if (words_.Is("USE")) {
    pin.Type = NetTypeOf(words_.Take());
  } else if (words_.Is("PORT")) {
    ClosePort(pin);
  } else if (words_.Is("LAYER") || words_.Is("POLYGON")) {
    ReadShape(words_.Is("POLYGON"));
  } else if (IsPlacement()) {
    place_ = TakePlacement();
  }
}

/// LAYER name [MASK n] [SPACING n | DESIGNRULEWIDTH n] ( x y ) ( x y ), and POLYGON with more points.
void DefReader::ReadShape(bool polygon) {
  const std::string layer = words_.TakeName();
  Outline outline;
  while (words_.Take() != "+" && words_.Word() != ";") {
    if (words_.Word() != "(") continue;
    words_.PutBack();
    outline.Add(TakePoint());
  }
  // Leaves the "+" to the loop over the pin's parts.
  if (words_.Word() == "+") words_.PutBack();
  if (polygon ? outline.FillsItsBox() : outline.Count() == 2) port_.push_back({layer, outline.Bounds()});
}

/// Moves the port's shapes to its place. A port without a place is not on the chip.
void DefReader::ClosePort(Terminal& pin) {
  if (place_) {
    for (PinShape& shape : port_) {
      const Box turned = Oriented(shape.Place, place_->Turn);
      pin.Shapes.push_back({std::move(shape.Layer), {turned.Low + place_->At, turned.High + place_->At}});
    }
  }
  port_.clear();
  place_.reset();
}

Placement DefReader::TakePlacement() {
  Placement placement;
  placement.At = TakePoint();
  const std::optional<Orientation> turn = OrientationOf(words_.Take());
  if (!turn)
    words_.Fail(model::Quoted(words_.Word()) + " is not an orientation",
                "write N, S, E, W, FN, FS, FE or FW");
  placement.Turn = *turn;
  return placement;
}

void DefReader::ReadComponent() {
  const std::string name = words_.TakeName();
  const std::string macroName = words_.TakeName();
  ++chip_.Cells;
  const auto macro = library_.find(macroName);
  std::optional<Placement> placement;
  while (words_.Word() != ";") {
    words_.Take();
    if (words_.Word() != "+") continue;
    words_.Take();
    if (IsPlacement()) placement = TakePlacement();
  }
  if (macro == library_.end()) return;
  ++chip_.CellsInLibrary;
  if (placement) cells_.push_back({name, &macro->second, *placement});
}

/// Adds the pins of a cell, once the chip's units are known.
void DefReader::AddPinsOf(const Cell& cell) {
  const double units = chip_.UnitsPerMicron;
  for (const Terminal& pin : cell.Macro->Pins) {
    if (pin.Shapes.empty()) continue;
    Terminal terminal{.Name = cell.Name, .Macro = cell.Macro->Name, .Type = pin.Type};
    for (const PinShape& shape : pin.Shapes) {
      const Box box = OrientedInCell(shape.Place, cell.Macro->Size, cell.Place.Turn);
      terminal.Shapes.push_back(
          {shape.Layer, {box.Low * units + cell.Place.At, box.High * units + cell.Place.At}});
    }
    chip_.Terminals.push_back(std::move(terminal));
  }
}

}  // namespace

DefChip ReadDef(std::string_view text, const std::string& file, const LefLibrary& library) {
  return DefReader(text, file, library).Read();
}

}  // namespace importer
