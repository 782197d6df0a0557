#include "import/lef_reader.h"

#include <utility>

#include "import/lef_def_words.h"

namespace importer {

namespace {

class LefReader {
 public:
  LefReader(std::string_view text, const std::string& file) : words_(text, file) {}

  void ReadInto(LefLibrary& library) {
    while (words_.Next()) {
      if (words_.Is("MACRO")) {
        LefMacro macro = ReadMacro();
        std::string name = macro.Name;
        library.insert_or_assign(std::move(name), std::move(macro));
      } else if (words_.Is("PROPERTYDEFINITIONS")) {
        // Its lines begin with the words that begin sections elsewhere.
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
  glm::dvec2 TakePoint() {
    const double x = words_.TakeNumber();
    return {x, words_.TakeNumber()};
  }

  LefDefWords words_;
  std::string layer_;
};

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
      continue;
    }
    words_.SkipStatement();
  }
}

/// RECT [MASK n] [ITERATE] x y x y [DO ...] ;
void LefReader::ReadRectangle(Terminal& pin) {
  words_.Take();
  if (words_.Is("MASK")) {
    words_.TakeNumber();
    words_.Take();
  }
  if (!words_.Is("ITERATE")) words_.Again();
  const glm::dvec2 corner = TakePoint();
  pin.Shapes.push_back({layer_, BoxOf(corner, TakePoint())});
}

/// POLYGON [MASK n] [ITERATE] x y x y x y ... ;
void LefReader::ReadPolygon(Terminal& pin) {
  Outline outline;
  words_.Take();
  if (words_.Is("MASK")) {
    words_.TakeNumber();
    words_.Take();
  }
  if (words_.Is("ITERATE")) words_.Take();
  while (words_.Word() != ";" && !words_.Is("DO")) {
    const double x = words_.Number();
    outline.Add({x, words_.TakeNumber()});
    words_.Take();
  }
  words_.SkipStatement();
  if (outline.FillsItsBox()) pin.Shapes.push_back({layer_, outline.Bounds()});
}

/// From "OBS" to its "END", which has no name behind it.
void LefReader::SkipObstructions() {
  while (!words_.Is("END")) words_.Take();
}

}  // namespace

void ReadLef(std::string_view text, const std::string& file, LefLibrary& library) {
  LefReader(text, file).ReadInto(library);
}

}  // namespace importer
