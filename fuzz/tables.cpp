// Tables: reads one as die, fingers and bonds at once, up to the package, then writes the package and reads
// it again.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "fuzz/import_refusal.h"
#include "fuzz/memory_file.h"
#include "import/bonded_package.h"
#include "import/package_generator.h"
#include "import/pad_table.h"
#include "model/reader/package_writer.h"
#include "model/reader/read_package.h"

namespace {

const glm::dvec2 kDieSize(3.0, 2.0);

importer::Die DieOf(const std::string& file) {
  importer::Die die = importer::DieFromTable({.File = file, .DieSize = kDieSize});
  importer::NamePads(die.Pads);
  importer::FindSides(die);
  std::set<std::string> names;
  for (const importer::DiePad& pad : die.Pads) {
    Expect(names.insert(pad.Name).second && pad.Name.find_first_of(" \t\n\r") == std::string::npos,
           "names are fields, and unique");
    Expect(std::isfinite(pad.Middle.x + pad.Middle.y), "pads have places");
    Expect(pad.Side == 'L' || pad.Side == 'R' || pad.Side == 'T' || pad.Side == 'B', "pads have edges");
  }
  die.Height = 0.3;
  return die;
}

void ExpectSame(const model::Package& package) {
  const model::Package again = model::reader::ParsePackage(
      {}, {model::reader::PackageText(package), model::reader::NetTypesText(package)});
  Expect(again.Bonds.Count() == package.Bonds.Count() && again.WireNames.Count() == package.WireNames.Count(),
         "what is written reads the same");
  for (std::size_t i = 0; i < package.Bonds.Count(); ++i)
    Expect(again.Bonds[i].Name == package.Bonds[i].Name && again.Bonds[i].DieX == package.Bonds[i].DieX &&
               again.Bonds[i].WireEndY == package.Bonds[i].WireEndY &&
               again.Bonds[i].SubAngle == package.Bonds[i].SubAngle,
           "what is written reads the same");
}

void Bond(std::string_view text, const importer::Die& die, const importer::LeadFrame& frame,
          const importer::BondRequest& request) {
  static const importer::NetPatterns nets = importer::UsualNets();
  ReadOrRefuse(text, [&] {
    const importer::Assignment bonds = importer::Assigned(die, frame, request);
    ExpectSame(importer::BondedPackage({die, frame, bonds, nets}, 1.0, "mm").Package);
  });
}

void NameFingers(importer::LeadFrame& fingers) {
  const std::vector<importer::Lead> before = fingers.Leads;
  importer::NameLeads(fingers);
  std::map<std::string, std::string> fieldOf;
  std::set<std::string> fields;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const std::string& field = fingers.Leads[i].Field;
    Expect(field.find_first_of(" \t\n\r") == std::string::npos, "labels are fields");
    const auto [known, isNew] = fieldOf.try_emplace(before[i].Label(), field);
    Expect(known->second == field, "one label stays one");
    if (isNew) Expect(fields.insert(field).second, "two labels stay two");
  }
}

/// The table as fingers and as bonds of the same die.
void BondOwnFingers(std::string_view text, const std::string& file, const importer::Die& die) {
  ReadOrRefuse(text, [&] {
    importer::LeadFrame fingers = importer::FingersFromTable(file, 1.0, kDieSize);
    NameFingers(fingers);
    Bond(text, die, fingers, {.Plan = importer::BondPlan::Names});
    Bond(text, die, fingers, {.Plan = importer::BondPlan::Table, .TableFile = file});
  });
}

void BondDie(std::string_view text, const std::string& file) {
  static const importer::LeadFrame outline =
      importer::Outlined("qfn:16,body=9x9,pitch=0.65,lead=0.4x0.3,paddle=5x5", 1.0);
  ReadOrRefuse(text, [&] {
    const importer::Die die = DieOf(file);
    Bond(text, die, outline, {});
    Bond(text, die, outline, {.Plan = importer::BondPlan::Table, .TableFile = file});
    BondOwnFingers(text, file, die);
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  static const MemoryFile file;
  if (!file.Put(text)) return -1;
  BondDie(text, file.Path());
  ReadOrRefuse(text, [&] { importer::FingersFromTable(file.Path(), 1.0, kDieSize); });
  ReadOrRefuse(text, [&] { importer::BondsFromTable(file.Path()); });
  return 0;
}
