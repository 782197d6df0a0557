#include "import/chip_import.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "import/argument_error.h"
#include "import/die_reader.h"
#include "import/kicad_footprint.h"
#include "import/names.h"
#include "import/package_generator.h"
#include "import/pad_table.h"
#include "import/source_file.h"
#include "model/text.h"

namespace importer {

namespace {

bool IsOver(const glm::dvec2& point, const glm::dvec2& dieSize) {
  return std::fabs(point.x) < dieSize.x / 2.0 && std::fabs(point.y) < dieSize.y / 2.0;
}

/// Leads under the die and pads outside it are signs of wrong units or places.
void CheckPlaces(const Die& die, const LeadFrame& frame, Imported& imported) {
  std::vector<std::string> under;
  for (const Lead& lead : frame.Leads)
    if (IsOver(lead.Inner, die.Size)) under.push_back(lead.Label());
  if (!under.empty())
    imported.Notes.push_back({frame.File, "the die lies over " + Counted(under.size(), "lead: ", "leads: ") +
                                              Listed(under) + "; check all units"});
  std::vector<std::string> outside;
  for (const DiePad& pad : die.Pads)
    if (!IsOver(pad.Middle, die.Size)) outside.push_back(pad.Name);
  if (!outside.empty())
    imported.Made.Findings.push_back(Counted(outside.size(), "pad lies", "pads lie") + " outside the die: " +
                                     Listed(outside) + "; check --die-size and --unit");
}

/// A file that is both die and package gives some notes twice.
void AddNotes(const std::string& file, const std::vector<std::string>& texts,
              std::vector<SourceNote>& notes) {
  for (const std::string& text : texts) {
    const auto same = [&](const SourceNote& note) { return note.File == file && note.Text == text; };
    if (std::none_of(notes.begin(), notes.end(), same)) notes.push_back({file, text});
  }
}

}  // namespace

LeadFrame FrameOf(const std::string& package, double unit, const glm::dvec2& dieSize) {
  if (IsOutline(package)) return Outlined(package, unit);
  if (EndsWith(package, ".KICAD_MOD")) return FootprintOf(ReadSource(package), package);
  const std::string upper = model::UpperCase(package);
  const std::string board = ".KICAD_PCB";
  if (upper.ends_with(board))
    throw ArgumentError("package", "a board has many footprints", "name one: FILE.kicad_pcb:REFERENCE");
  if (const std::size_t at = upper.rfind(board + ":"); at != std::string::npos) {
    const std::string file = package.substr(0, at + board.size());
    return FootprintOnBoard(ReadSource(file), file, package.substr(at + board.size() + 1));
  }
  if (IsTableFile(package)) return FingersFromTable(package, unit, dieSize);
  RefuseKind(package,
             ".kicad_mod, .kicad_pcb:REFERENCE, .csv, .tsv or .txt, and it does not begin with qfn: or qfp:");
}

Imported ImportChip(const ImportRequest& request) {
  Die die = ReadDie(request.Chip);
  die.Height = request.Height;
  std::vector<std::string> renamed = NamePads(die.Pads);
  FindSides(die);
  LeadFrame frame = FrameOf(request.Package, request.Unit, die.Size);
  for (std::string& finding : NameLeads(frame)) renamed.push_back(std::move(finding));
  PlaceDie(frame, request.Degrees, request.Offset);
  const Assignment bonds = Assigned(die, frame, request.Bonds);
  Imported imported{BondedPackage({die, frame, bonds, request.Nets}, request.Unit, request.UnitName), {}};
  std::vector<std::string>& findings = imported.Made.Findings;
  findings.insert(findings.begin(), renamed.begin(), renamed.end());
  AddNotes(die.File, die.Notes, imported.Notes);
  AddNotes(frame.File, frame.Notes, imported.Notes);
  if (bonds.Wires.empty() && request.Bonds.Plan == BondPlan::Table)
    AddNotes(request.Bonds.TableFile, {"none of its rows makes a wire"}, imported.Notes);
  CheckPlaces(die, frame, imported);
  return imported;
}

}  // namespace importer
