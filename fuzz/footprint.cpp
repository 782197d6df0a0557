// Footprints and boards of KiCad, read up to leads and paddle.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <glm/geometric.hpp>
#include <set>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "fuzz/import_refusal.h"
#include "import/kicad_footprint.h"

namespace {

void ExpectFrame(const importer::LeadFrame& frame) {
  Expect(!frame.Leads.empty(), "a footprint without leads is refused");
  std::set<std::string> numbers;
  for (const importer::Lead& lead : frame.Leads) {
    Expect(!lead.Number.empty() && numbers.insert(lead.Number).second,
           "each lead has a number, and each its own");
    Expect(std::isfinite(lead.Inner.x + lead.Inner.y + lead.Outer.x + lead.Outer.y), "leads have places");
    Expect(lead.Width > 0.0, "leads have a width");
    Expect(glm::length(lead.Inner) <= glm::length(lead.Outer) + 1e-6, "inner ends are the nearer ones");
  }
  if (frame.DiePaddle)
    Expect(frame.DiePaddle->Size.x > 0.0 && frame.DiePaddle->Size.y > 0.0, "a paddle has a size");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ReadOrRefuse(text, [&] { ExpectFrame(importer::FootprintOf(text, "f")); });
  ReadOrRefuse(text, [&] { ExpectFrame(importer::FootprintOnBoard(text, "b", "U1")); });
  return 0;
}
