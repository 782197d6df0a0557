#include "import/lef_reader.h"

#include <cmath>
#include <utility>

#include "import/lef_def_words.h"
#include "model/text.h"

namespace importer {

namespace {

class LefReader {
 public:
  LefReader(std::string_view text, const std::string& file) : words_(text, file) {}

  void ReadInto(LefLibrary& library) {
    while (words_.Next()) {
      if (words_.Is("MACRO")) {
        words_.LetQuotesSpanLines(true);
        LefMacro macro = ReadMacro();
        words_.LetQuotesSpanLines(false);
        std::string name = macro.Name;
        library.insert_or_assign(std::move(name), std::move(macro));
      } else if (words_.Is("PROPERTYDEFINITIONS")) {
        // Its lines begin with words that begin sections elsewhere.
        words_.SkipSection("PROPERTYDEFINITIONS");
      } else if (words_.Is("BEGINEXT")) {
        while (!words_.Is("ENDEXT")) words_.Take();
      }
    }
  }

 private:
  LefMacro ReadMacro();
  Terminal ReadPin();
  void ReadPort(Terminal& pin);
  void ReadRectangle(Terminal& pin);
  void ReadPolygon(Terminal& pin);
  void SkipObstructions();
  bool TakeMaskAndIterate();
  glm::dvec2 TakePoint();
  void AddEach(Terminal& pin, const Box& first, bool repeated);

  LefDefWords words_;
  std::string layer_;
  std::size_t repeated_ = 0;  ///< shapes that ITERATE has made so far
};

/// Two numbers, which may be in brackets.
glm::dvec2 LefReader::TakePoint() {
  const bool bracket = words_.Take() == "(";
  if (!bracket) words_.PutBack();
  const double x = words_.TakeNumber();
  const double y = words_.TakeNumber();
  if (bracket) words_.TakeKeyword(")");
  return {x, y};
}

/// [MASK n] [ITERATE] before a shape's points; true with ITERATE.
bool LefReader::TakeMaskAndIterate() {
  words_.Take();
  if (words_.Is("MASK")) {
    words_.TakeNumber();
    words_.Take();
  }
  const bool repeated = words_.Is("ITERATE");
  if (!repeated) words_.PutBack();
  return repeated;
}

/// Adds a shape, or all of "DO columns BY rows STEP x y".
void LefReader::AddEach(Terminal& pin, const Box& first, bool repeated) {
  if (!repeated) return pin.Shapes.push_back({layer_, first});
  constexpr double kMost = 100'000;
  const auto count = [this] {
    const double number = words_.TakeNumber();
    if (!(number >= 1.0 && number <= kMost && number == std::floor(number)))
      words_.Fail(model::Quoted(words_.Word()) + " is not a number of repetitions",
                  "give a whole number of at least 1");
    return static_cast<std::size_t>(number);
  };
  words_.TakeKeyword("DO");
  const std::size_t columns = count();
  words_.TakeKeyword("BY");
  const std::size_t rows = count();
  words_.TakeKeyword("STEP");
  const glm::dvec2 step = TakePoint();
  repeated_ += columns * rows;
  if (static_cast<double>(repeated_) > kMost)
    words_.Fail("ITERATE makes more than 100000 shapes", "remove shapes that are not pads");
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      const glm::dvec2 move = step * glm::dvec2(static_cast<double>(column), static_cast<double>(row));
      pin.Shapes.push_back({layer_, {first.Low + move, first.High + move}});
    }
  }
}

LefMacro LefReader::ReadMacro() {
  LefMacro macro{.Name = words_.TakeName(), .Line = words_.Line()};
  glm::dvec2 origin{0.0};
  for (;;) {
    words_.Take();
    if (words_.Is("END")) {
      // Sections within a macro end with other names.
      if (words_.TakeName() == macro.Name) break;
      continue;
    }
    if (words_.Is("ORIGIN")) {
      origin = TakePoint();
    } else if (words_.Is("SIZE")) {
      macro.Size.x = words_.TakeNumber();
      words_.TakeKeyword("BY");
      macro.Size.y = words_.TakeNumber();
    } else if (words_.Is("PIN")) {
      macro.Pins.push_back(ReadPin());
      continue;
    } else if (words_.Is("OBS") || words_.Is("DENSITY")) {
      SkipObstructions();
      continue;
    }
    words_.SkipStatement();
  }
  for (Terminal& pin : macro.Pins)
    for (PinShape& shape : pin.Shapes) shape.Place = {shape.Place.Low + origin, shape.Place.High + origin};
  return macro;
}

Terminal LefReader::ReadPin() {
  Terminal pin{.Name = words_.TakeName()};
  for (;;) {
    words_.Take();
    if (words_.Is("END")) {
      words_.Take();
      return pin;
    }
    if (words_.Is("PORT")) {
      ReadPort(pin);
      continue;
    }
    if (words_.Is("USE")) pin.Type = NetTypeOf(words_.Take());
    words_.SkipStatement();
  }
}

/// From "PORT" to its "END".
void LefReader::ReadPort(Terminal& pin) {
  layer_.clear();
  for (words_.Take(); !words_.Is("END"); words_.Take()) {
    if (words_.Is("LAYER")) {
      layer_ = words_.TakeName();
    } else if (words_.Is("RECT")) {
      ReadRectangle(pin);
    } else if (words_.Is("POLYGON")) {
      ReadPolygon(pin);
    }
    words_.SkipStatement();
  }
}

/// RECT [MASK n] [ITERATE] x y x y [DO ...] ;
void LefReader::ReadRectangle(Terminal& pin) {
  const bool repeated = TakeMaskAndIterate();
  const glm::dvec2 corner = TakePoint();
  AddEach(pin, BoxOf(corner, TakePoint()), repeated);
}

/// POLYGON [MASK n] [ITERATE] x y x y x y ... [DO ...] ;
void LefReader::ReadPolygon(Terminal& pin) {
  const bool repeated = TakeMaskAndIterate();
  Outline outline;
  while (words_.Take() != ";" && !words_.Is("DO")) {
    words_.PutBack();
    outline.Add(TakePoint());
  }
  words_.PutBack();
  if (outline.FillsItsBox()) AddEach(pin, outline.Bounds(), repeated);
}

/// From "OBS" to its "END", which is not followed by a name.
void LefReader::SkipObstructions() {
  while (!words_.Is("END")) words_.Take();
}

}  // namespace

void ReadLef(std::string_view text, const std::string& file, LefLibrary& library) {
  LefReader(text, file).ReadInto(library);
}

}  // namespace importer
