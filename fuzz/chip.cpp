// Chips: a DEF text and, after a NUL byte, the LEF of its cells. Reads both up to the pads, and the LEF as a
// chip too.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "fuzz/import_refusal.h"
#include "import/def_reader.h"
#include "import/lef_reader.h"

namespace {

void ExpectPlace(const importer::Box& box) {
  for (const double value : {box.Low.x, box.Low.y, box.High.x, box.High.y})
    Expect(std::isfinite(value), "places are finite");
  Expect(box.Low.x <= box.High.x && box.Low.y <= box.High.y, "boxes have their corners in order");
}

void ExpectShapes(const std::vector<importer::Terminal>& terminals) {
  for (const importer::Terminal& terminal : terminals)
    for (const importer::PinShape& shape : terminal.Shapes) ExpectPlace(shape.Place);
}

void ExpectPads(const std::vector<importer::Terminal>& terminals, double least) {
  const importer::PadRule rule{.Least = least};
  for (const importer::DiePad& pad : importer::PadsOf(terminals, rule)) {
    const double shorter = std::min(pad.Size.x, pad.Size.y);
    const double longer = std::max(pad.Size.x, pad.Size.y);
    Expect(shorter > 0.0 && shorter >= least - 1e-6 && longer <= 2.0 * shorter + 1e-6, "pads keep the rule");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(text.find('\0'), text.size());
  const std::string_view def = text.substr(0, end);
  const std::string_view lef = text.substr(std::min(end + 1, text.size()));
  importer::LefLibrary library;
  ReadOrRefuse(lef, [&] { importer::ReadLef(lef, "lef", library); });
  for (const auto& [name, macro] : library) {
    Expect(name == macro.Name, "macros are found by their names");
    ExpectShapes(macro.Pins);
    ExpectPads(macro.Pins, 20.0);
  }
  ReadOrRefuse(def, [&] {
    const importer::DefChip chip = importer::ReadDef(def, "def", library);
    Expect(chip.UnitsPerMicron >= 1.0 && chip.CellsInLibrary <= chip.Cells, "a chip has units");
    if (chip.Area) ExpectPlace(*chip.Area);
    ExpectShapes(chip.Terminals);
    ExpectPads(chip.Terminals, 20000.0);
  });
  return 0;
}
