#include "analysis/drawing_check.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "analysis/fault_advice.h"
#include "model/arithmetic.h"
#include "model/for_each_wire.h"
#include "model/pen.h"
#include "model/side.h"
#include "model/text.h"
#include "render/scene.h"

namespace analysis {

namespace {

using model::BondPart;
using model::BondRec;
using model::EqualsUpper;
using model::Quoted;
using model::RecordPlace;
using model::RecordTable;

class NoPen final : public model::Pen {
 public:
  void Quad(const model::Face&) override {}
  void Disc(const model::DiscRim&) override {}
  void Strip(const model::WireStrip&, const model::Colour&) override {}
};

class DrawingCheck {
 public:
  DrawingCheck(const model::Package& package, const LineCheck& lines, Diagnostics& found)
      : package_(package), lines_(lines), found_(found) {}

  void Run();

 private:
  template <class Work>
  void Try(const char* kind, const RecordPlace& place, Work&& work);
  void Report(const char* kind, const model::Fault& fault);
  void Error(const char* kind, std::size_t line, const std::string& fault, std::string advice);
  void Nothing(std::size_t line, std::string what, std::string advice);
  void NothingOfZero(std::size_t line, std::string what, std::string advice);
  std::size_t LineOf(RecordTable table, std::size_t number, BondPart part = BondPart::DiePad) const {
    return lines_.Lines().Of({table, number, part});
  }
  std::string Named(const RecordPlace& place) const { return QuotedRecordName(package_, place); }
  bool HasMoreThanDies() const;
  void CheckTechnology();
  void CheckDiePads(const model::Table<BondRec>& bonds, RecordTable table);
  void CheckHeights();
  void CheckBaseDie();
  void CheckStackedDie();
  void CheckBonds(const model::Table<BondRec>& bonds, RecordTable table);
  void CheckSubstratePad(const BondRec& bond, const RecordPlace& place);
  void CheckLoops();
  void CheckRings();
  void CheckSRings();
  void CheckSegments(std::size_t ring);
  void CheckBands();
  void NotePads(const model::Table<BondRec>& bonds, RecordTable table);

  const model::Package& package_;
  const LineCheck& lines_;
  Diagnostics& found_;
  NoPen pen_;
  const model::WireBondSettings settings_ = model::SettingsAfterReset(package_);
  const render::Appearance appearance_;
  const model::WireSelection selection_;
  render::Scene scene_{{package_, settings_, appearance_, selection_}, pen_};
};

/// Runs `work` on a record and reports the fault that leaves it.
template <class Work>
void DrawingCheck::Try(const char* kind, const RecordPlace& place, Work&& work) {
  try {
    model::AtRecord(package_, place, work);
  } catch (const model::Fault& fault) {
    Report(kind, fault);
  }
}

void DrawingCheck::Report(const char* kind, const model::Fault& fault) {
  const std::size_t line = fault.Record() ? lines_.Lines().Of(*fault.Record()) : 0;
  const bool tooMany = dynamic_cast<const model::TooManyRecords*>(&fault) != nullptr;
  Error(tooMany ? "too-many" : kind, line, fault.what(), AdviceOn(fault));
}

void DrawingCheck::Error(const char* kind, std::size_t line, const std::string& fault, std::string advice) {
  found_.List.push_back({Severity::Error,
                         kind,
                         {found_.File, line},
                         "the viewer ends with \"" + fault + "\"",
                         std::move(advice)});
}

void DrawingCheck::Nothing(std::size_t line, std::string what, std::string advice) {
  // A diagnostic already says what such a line lacks.
  if (lines_.IsIncomplete(line)) return;
  found_.List.push_back(
      {Severity::Finding, "draws-nothing", {found_.File, line}, std::move(what), std::move(advice)});
}

void DrawingCheck::NothingOfZero(std::size_t line, std::string what, std::string advice) {
  if (!lines_.ExplainsZeros(line)) Nothing(line, std::move(what), std::move(advice));
}

/// True when the package has anything that only wire-bonded packages show.
bool DrawingCheck::HasMoreThanDies() const {
  const auto has = [this](const model::Table<BondRec>& bonds, RecordTable table) {
    for (std::size_t i = 0; i < bonds.Count(); ++i)
      if (LineOf(table, i, BondPart::SubstratePad) != 0 || LineOf(table, i, BondPart::Wire) != 0) return true;
    return false;
  };
  return !package_.Stitches.Empty() || !package_.Rings.Empty() || !package_.SRings.Empty() ||
         !package_.Daps.Empty() || has(package_.Bonds, RecordTable::Bonds) ||
         has(package_.SDBonds, RecordTable::SDBonds);
}

void DrawingCheck::CheckTechnology() {
  if (model::IsWireBonded(package_) || package_.Technology == "FLIP_CHIP") return;
  const std::string hides = " shows no wires, substrate pads, rings or bands";
  if (const std::size_t line = lines_.Lines().OfHeader("TECHNOLOGY")) {
    Nothing(line, "TECHNOLOGY " + Quoted(package_.Technology) + hides, "write WIRE_BOND or FLIP_CHIP");
  } else if (HasMoreThanDies()) {
    Nothing(0, "a package without TECHNOLOGY" + hides, "write TECHNOLOGY WIRE_BOND into the header");
  }
}

void DrawingCheck::CheckDiePads(const model::Table<BondRec>& bonds, RecordTable table) {
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    const BondRec& bond = bonds[i];
    const RecordPlace place{table, i};
    const std::size_t line = lines_.Lines().Of(place);
    const std::string pad = Named(place);
    const bool rectangle = EqualsUpper(bond.DieShape, "RECTANGLE");
    // Deliberate: as in the drawing, ROUND counts in capitals only.
    if (!rectangle && bond.DieShape != "ROUND") {
      Nothing(line, pad + " is not drawn: its shape is " + Quoted(bond.DieShape),
              "write RECTANGLE, or ROUND in capitals");
    } else if (bond.DieSizeX == 0.0F || (rectangle && bond.DieSizeY == 0.0F)) {
      NothingOfZero(line, pad + " shows nothing: its size is 0", "give fields 5 and 6 a size");
    } else if (model::IsWireBonded(package_) && !model::SideOf(bond.DieSide)) {
      Nothing(line,
              pad + " has the edge letter " + Quoted(bond.DieSide) +
                  ": its substrate pad would cover the previous one",
              "write L, R, T or B");
    }
  }
}

/// The heights that a load computes before it draws anything.
void DrawingCheck::CheckHeights() {
  try {
    model::WireBondSettings settings;
    model::SetUnsetDefaults(settings, package_);
  } catch (const model::Fault& fault) {
    const bool base = std::fabs(package_.CompZ) >= std::fabs(package_.SDCompZ);
    Error("fault", lines_.Lines().OfHeader(base ? "COMPZ" : "SD_COMPZ"), fault.what(),
          "give a realistic height");
  }
}

void DrawingCheck::CheckBaseDie() {
  const auto check = [&](float size, const char* keyword) {
    // Without such a line the package may intentionally have no die.
    const std::size_t line = lines_.Lines().OfHeader(keyword);
    if (size == 0.0F && line != 0)
      NothingOfZero(line, std::string("the base die shows nothing: its ") + keyword + " is 0",
                    "give it a length and a width");
  };
  check(package_.CompL, "COMPL");
  check(package_.CompW, "COMPW");
}

/// The width alone decides whether there is a stacked die. Its rectangular pads are drawn from corners that
/// only a stacked die turns; round ones are drawn all the same.
void DrawingCheck::CheckStackedDie() {
  const std::string advice = "give SD_COMPW, SD_COMPL and SD_COMPZ in the header";
  const std::size_t length = lines_.Lines().OfHeader("SD_COMPL");
  if (package_.SDCompW != 0.0F) {
    if (package_.SDCompL != 0.0F) return;
    return NothingOfZero(length != 0 ? length : lines_.Lines().OfHeader("SD_COMPW"),
                         "the stacked die shows nothing: it has no SD_COMPL", advice);
  }
  for (std::size_t i = 0; i < package_.SDBonds.Count(); ++i)
    if (EqualsUpper(package_.SDBonds[i].DieShape, "RECTANGLE"))
      return Nothing(LineOf(RecordTable::SDBonds, i),
                     "there is no stacked die, and its rectangular pads show nothing", advice);
  if (!package_.SDBonds.Empty())
    return Nothing(LineOf(RecordTable::SDBonds, 0), "there is no stacked die under its pads", advice);
  if (package_.SDCompL != 0.0F) Nothing(length, "the stacked die is not drawn: it has no SD_COMPW", advice);
}

void DrawingCheck::CheckBonds(const model::Table<BondRec>& bonds, RecordTable table) {
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    CheckSubstratePad(bonds[i], {table, i, BondPart::SubstratePad});
    const RecordPlace wire{table, i, BondPart::Wire};
    const std::size_t line = lines_.Lines().Of(wire);
    if (line != 0 && !model::HasWire(bonds[i]))
      NothingOfZero(line, Named(wire) + " is not drawn: it starts at (0, 0)",
                    "give fields 2 and 3 its start");
  }
}

void DrawingCheck::CheckSubstratePad(const BondRec& bond, const RecordPlace& place) {
  const std::size_t line = lines_.Lines().Of(place);
  if (line == 0) return;
  const std::string pad = Named(place);
  if (bond.SubX == 0.0F && bond.SubY == 0.0F) {
    NothingOfZero(line, pad + " is not drawn: its centre is (0, 0)", "give fields 2 and 3 its place");
  } else if (bond.SubSizeX == 0.0F || bond.SubSizeY == 0.0F) {
    NothingOfZero(line, pad + " shows nothing: its size is 0", "give fields 5 and 6 a size");
  }
}

void DrawingCheck::CheckLoops() {
  const auto pass = [](const model::Wire&) {};
  const auto report = [this](const model::Fault& fault) { Report("wire-fault", fault); };
  model::ForEachWire({package_, settings_, selection_}, pass, report);
}

void DrawingCheck::CheckRings() {
  Try("too-many", {}, [&] { model::CountIn16Bits(package_.Rings.Count(), RecordTable::Rings); });
  for (std::size_t i = 0; i < package_.Rings.Count(); ++i) {
    const RecordPlace place{RecordTable::Rings, i};
    if (package_.Rings[i].Width == 0.0F)
      NothingOfZero(lines_.Lines().Of(place), Named(place) + " shows nothing: its width is 0",
                    "give field 7 its width");
    if (!EqualsUpper(package_.Rings[i].Kind, "ARC")) continue;
    Try("ring-fault", place, [&] { scene_.DrawArcRing(i); });
  }
}

void DrawingCheck::CheckSRings() {
  Try("too-many", {}, [&] { model::CountIn16Bits(package_.SRings.Count(), RecordTable::SRings); });
  for (std::size_t i = 0; i < package_.SRings.Count(); ++i) {
    const model::SRingRec& ring = package_.SRings[i];
    const RecordPlace place{RecordTable::SRings, i};
    const std::string name = Named(place);
    if (ring.Segs.Empty()) {
      Nothing(lines_.Lines().Of(place), name + " shows nothing: it has no pieces", "add SRSEG lines");
    } else if (ring.Width == 0.0F) {
      NothingOfZero(lines_.Lines().Of(place), name + " shows nothing: its width is 0",
                    "give field 7 its width");
    }
    CheckSegments(i);
    if (!EqualsUpper(ring.Kind, "ARC")) continue;
    Try("ring-fault", place, [&] { scene_.DrawArcSRing(i); });
  }
}

void DrawingCheck::CheckSegments(std::size_t ring) {
  const model::Table<model::SRSegRec>& segments = package_.SRings[ring].Segs;
  for (std::size_t i = 0; i < segments.Count(); ++i) {
    if (model::ExactSideOf(segments[i].Name)) continue;
    Nothing(lines_.Lines().OfSegment(ring, i),
            "a piece of " + Named({RecordTable::SRings, ring}) + " is not drawn: its side is " +
                Quoted(segments[i].Name),
            "write B, T, L or R, in capitals");
  }
}

void DrawingCheck::CheckBands() {
  for (std::size_t i = 0; i < package_.Daps.Count(); ++i) {
    const RecordPlace place{RecordTable::Daps, i};
    if (package_.Daps[i].D5 == 0.0F)
      NothingOfZero(lines_.Lines().Of(place), Named(place) + " shows nothing: its width is 0",
                    "give field 6 its width");
  }
}

void DrawingCheck::NotePads(const model::Table<BondRec>& bonds, RecordTable table) {
  const auto note = [&](const char* kind, std::size_t line, std::string what) {
    found_.List.push_back({Severity::Note, kind, {found_.File, line}, std::move(what), ""});
  };
  std::unordered_set<std::string_view> stitched;
  for (const model::StitchRec& stitch : package_.Stitches) stitched.insert({stitch.Pad1, stitch.Pad2});
  std::unordered_set<std::string_view> names;
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    // A second pad of a name is reported as such.
    if (!names.insert(bonds[i].Name).second) continue;
    const bool wire = LineOf(table, i, BondPart::Wire) != 0;
    const bool stitch = stitched.contains(bonds[i].Name);
    const std::size_t line = LineOf(table, i);
    const std::string pad = Named({table, i});
    if (!wire && !stitch) note("pads-without-wire", line, pad + " has no wire");
    // A pad with nothing but stitches needs none.
    if (LineOf(table, i, BondPart::SubstratePad) == 0 && (wire || !stitch))
      note("pads-without-substrate-pad", line, pad + " has no substrate pad");
  }
}

void DrawingCheck::Run() {
  CheckHeights();
  CheckTechnology();
  CheckDiePads(package_.Bonds, RecordTable::Bonds);
  CheckDiePads(package_.SDBonds, RecordTable::SDBonds);
  CheckBaseDie();
  CheckStackedDie();
  if (model::IsWireBonded(package_)) {
    CheckBonds(package_.Bonds, RecordTable::Bonds);
    CheckBonds(package_.SDBonds, RecordTable::SDBonds);
    CheckLoops();
    CheckRings();
    CheckSRings();
    CheckBands();
    NotePads(package_.Bonds, RecordTable::Bonds);
    NotePads(package_.SDBonds, RecordTable::SDBonds);
  }
  // Drawing everything finds the faults that no check above looks for.
  if (found_.Count(Severity::Error) == 0) Try("fault", {}, [&] { scene_.DrawPackage(); });
}

}  // namespace

void CheckDrawing(const model::Package& package, const LineCheck& lines, Diagnostics& found) {
  DrawingCheck(package, lines, found).Run();
}

}  // namespace analysis
