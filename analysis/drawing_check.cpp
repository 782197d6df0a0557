#include "analysis/drawing_check.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "model/arithmetic.h"
#include "model/faults.h"
#include "model/for_each_wire.h"
#include "model/pen.h"
#include "model/text.h"
#include "model/wire_bond_settings.h"
#include "render/scene.h"

namespace analysis {

namespace {

using model::BondRec;
using model::EqualsUpper;

class NoPen final : public model::Pen {
 public:
  void Quad(const model::Face&) override {}
  void Disc(const model::DiscRim&) override {}
  void Strip(const model::WireStrip&, const model::Colour&) override {}
};

/// The words with which the viewer ends; empty when it does not.
template <class Work>
std::string FaultOf(Work&& work) {
  try {
    work();
  } catch (const model::Fault& fault) {
    return fault.what();
  }
  return {};
}

bool IsEdge(const std::string& side) {
  return EqualsUpper(side, "L") || EqualsUpper(side, "R") || EqualsUpper(side, "T") || EqualsUpper(side, "B");
}

class DrawingCheck {
 public:
  DrawingCheck(const model::Package& package, const PackageLines& lines, formats::CheckReport& report)
      : package_(package), lines_(lines), report_(report) {}

  void Run();

 private:
  void Error(const char* kind, std::size_t line, const std::string& fault, std::string advice);
  void Nothing(std::size_t line, std::string what, std::string advice);
  void NothingOfZero(std::size_t line, std::string what, std::string advice);
  void CheckTechnology();
  void CheckDiePads(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines);
  void CheckHeights();
  void CheckBaseDie();
  void CheckStackedDie();
  void CheckBonds(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines);
  void CheckWire(const BondRec& bond, std::size_t line);
  void CheckLoops();
  void LoopFault(const model::Fault& fault);
  void CheckRings();
  void CheckSRings();
  void CheckSegments(const model::SRingRec& ring, const std::vector<std::size_t>& lines);
  void CheckBands();
  void CheckCounts();
  void NotePads(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines);

  const model::Package& package_;
  const PackageLines& lines_;
  formats::CheckReport& report_;
  NoPen pen_;
  const model::WireBondSettings settings_ = model::SettingsAfterReset(package_);
  const render::Appearance appearance_;
  const model::WireSelection selection_;
  render::Scene scene_{{package_, settings_, appearance_, selection_}, pen_};
};

void DrawingCheck::Error(const char* kind, std::size_t line, const std::string& fault, std::string advice) {
  report_.Remarks.push_back({formats::Level::Error,
                             kind,
                             {report_.File, line},
                             "the viewer ends with \"" + fault + "\"",
                             std::move(advice)});
}

void DrawingCheck::Nothing(std::size_t line, std::string what, std::string advice) {
  // What such a line lacks was told already.
  if (lines_.Incomplete.contains(line)) return;
  report_.Remarks.push_back(
      {formats::Level::Finding, "draws-nothing", {report_.File, line}, std::move(what), std::move(advice)});
}

void DrawingCheck::NothingOfZero(std::size_t line, std::string what, std::string advice) {
  if (!lines_.Tells(line)) Nothing(line, std::move(what), std::move(advice));
}

void DrawingCheck::CheckTechnology() {
  if (package_.Technology == "WIRE_BOND" || package_.Technology == "FLIP_CHIP") return;
  const std::string hides = " shows no wires, substrate pads, rings and bands";
  if (const std::size_t line = lines_.HeaderOf("TECHNOLOGY")) {
    Nothing(line, "TECHNOLOGY " + formats::Shown(package_.Technology) + hides,
            "write WIRE_BOND or FLIP_CHIP");
  } else if (lines_.HasMoreThanDies()) {
    Nothing(0, "a package without TECHNOLOGY" + hides, "write TECHNOLOGY WIRE_BOND into the header");
  }
}

void DrawingCheck::CheckDiePads(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines) {
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    const BondRec& bond = bonds[i];
    const std::string pad = "the die pad " + formats::Shown(bond.Name);
    const bool rectangle = EqualsUpper(bond.DieShape, "RECTANGLE");
    // Deliberate: as in the drawing, ROUND counts in capitals only.
    if (!rectangle && bond.DieShape != "ROUND") {
      Nothing(lines[i].Pad, pad + " is not drawn: its shape is " + formats::Shown(bond.DieShape),
              "write RECTANGLE, or ROUND in capitals");
    } else if (bond.DieSizeX == 0.0F || (rectangle && bond.DieSizeY == 0.0F)) {
      NothingOfZero(lines[i].Pad, pad + " shows nothing: its size is 0", "give fields 5 and 6 a size");
    } else if (package_.Technology == "WIRE_BOND" && !IsEdge(bond.DieSide)) {
      Nothing(lines[i].Pad,
              pad + " lies on no edge, " + formats::Shown(bond.DieSide) +
                  ": a substrate pad would be drawn over the one before it",
              "write L, R, T or B");
    }
  }
}

/// A load works these out before it draws anything.
void DrawingCheck::CheckHeights() {
  model::WireBondSettings settings;
  const std::string fault = FaultOf([&] { model::SetUnsetDefaults(settings, package_); });
  const bool base = std::fabs(package_.CompZ) >= std::fabs(package_.SDCompZ);
  if (!fault.empty())
    Error("fault", lines_.HeaderOf(base ? "COMPZ" : "SD_COMPZ"), fault, "give the die a height that can be");
}

void DrawingCheck::CheckBaseDie() {
  const auto check = [&](float size, const char* keyword) {
    // Where there is no such line at all the package may well be without a die.
    const std::size_t line = lines_.HeaderOf(keyword);
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
  const std::size_t length = lines_.HeaderOf("SD_COMPL");
  if (package_.SDCompW != 0.0F) {
    if (package_.SDCompL != 0.0F) return;
    return NothingOfZero(length != 0 ? length : lines_.HeaderOf("SD_COMPW"),
                         "the stacked die shows nothing: it has no SD_COMPL", advice);
  }
  for (std::size_t i = 0; i < package_.SDBonds.Count(); ++i)
    if (EqualsUpper(package_.SDBonds[i].DieShape, "RECTANGLE"))
      return Nothing(lines_.SDBonds[i].Pad, "there is no stacked die, and its rectangular pads show nothing",
                     advice);
  if (!package_.SDBonds.Empty())
    return Nothing(lines_.SDBonds[0].Pad, "there is no stacked die under its pads", advice);
  if (package_.SDCompL != 0.0F) Nothing(length, "the stacked die is not drawn: it has no SD_COMPW", advice);
}

void DrawingCheck::CheckBonds(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines) {
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    const BondRec& bond = bonds[i];
    if (const std::size_t line = lines[i].SubstratePad) {
      const std::string pad = "the substrate pad of " + formats::Shown(bond.Name);
      if (bond.SubX == 0.0F && bond.SubY == 0.0F) {
        NothingOfZero(line, pad + " is not drawn: its centre is (0, 0)", "give fields 2 and 3 its place");
      } else if (bond.SubSizeX == 0.0F || bond.SubSizeY == 0.0F) {
        NothingOfZero(line, pad + " shows nothing: its size is 0", "give fields 5 and 6 a size");
      }
    }
    if (lines[i].Wire != 0) CheckWire(bond, lines[i].Wire);
  }
}

void DrawingCheck::CheckWire(const BondRec& bond, std::size_t line) {
  if (!model::HasWire(bond))
    return NothingOfZero(line, "the wire " + formats::Shown(bond.Name) + " is not drawn: it starts at (0, 0)",
                         "give fields 2 and 3 its start");
}

void DrawingCheck::CheckLoops() {
  model::ForEachWire(
      {package_, settings_, selection_}, [](const model::Wire&) {},
      [this](const model::Fault& fault) { LoopFault(fault); });
}

void DrawingCheck::LoopFault(const model::Fault& fault) {
  if (dynamic_cast<const model::TooManyRecords*>(&fault) != nullptr) return;  // CheckCounts reports it
  const model::RecordPlace place = fault.Record().value_or(model::RecordPlace{});
  if (place.Table == model::RecordTable::Stitches)
    return Error("wire-fault", lines_.Stitches[place.Number], fault.what(),
                 "let the stitch lead from one pad to another");
  const bool stacked = place.Table == model::RecordTable::SDBonds;
  Error("wire-fault", (stacked ? lines_.SDBonds : lines_.Bonds)[place.Number].Wire, fault.what(),
        "let the wire lead from its pad to another place");
}

void DrawingCheck::CheckRings() {
  for (std::size_t i = 0; i < package_.Rings.Count(); ++i) {
    const model::RingRec& ring = package_.Rings[i];
    if (ring.Width == 0.0F)
      NothingOfZero(lines_.Rings[i], "the ring shows nothing: its width is 0", "give field 7 its width");
    if (!EqualsUpper(ring.Kind, "ARC")) continue;
    const std::string fault = FaultOf([&] {
      model::AtRecord(package_, {model::RecordTable::Rings, i}, [&] { scene_.DrawArcRing(i); });
    });
    if (!fault.empty())
      Error("ring-fault", lines_.Rings[i], fault, "give field 8 the bulge of its sides, or make it straight");
  }
}

void DrawingCheck::CheckSRings() {
  for (std::size_t i = 0; i < package_.SRings.Count(); ++i) {
    const model::SRingRec& ring = package_.SRings[i];
    const std::string name = "the ring " + formats::Shown(ring.Name);
    if (ring.Segs.Empty()) {
      Nothing(lines_.SRings[i], name + " shows nothing: it has no pieces", "add SRSEG lines");
    } else if (ring.Width == 0.0F) {
      NothingOfZero(lines_.SRings[i], name + " shows nothing: its width is 0", "give field 7 its width");
    }
    CheckSegments(ring, lines_.Segments[i]);
    if (!EqualsUpper(ring.Kind, "ARC")) continue;
    const std::string fault = FaultOf([&] {
      model::AtRecord(package_, {model::RecordTable::SRings, i}, [&] { scene_.DrawArcSRing(i); });
    });
    if (!fault.empty())
      Error("ring-fault", lines_.SRings[i], fault,
            "give field 8 the bulge of its sides, or make it straight");
  }
}

void DrawingCheck::CheckSegments(const model::SRingRec& ring, const std::vector<std::size_t>& lines) {
  constexpr std::string_view kSides[] = {"B", "T", "L", "R"};
  for (std::size_t i = 0; i < ring.Segs.Count(); ++i) {
    if (std::find(std::begin(kSides), std::end(kSides), ring.Segs[i].Name) != std::end(kSides)) continue;
    Nothing(lines[i],
            "the piece of ring " + formats::Shown(ring.Name) + " is not drawn: its side is " +
                formats::Shown(ring.Segs[i].Name),
            "write B, T, L or R, in capitals");
  }
}

void DrawingCheck::CheckBands() {
  for (std::size_t i = 0; i < package_.Daps.Count(); ++i) {
    if (package_.Daps[i].D5 == 0.0F)
      NothingOfZero(lines_.Daps[i], "the band shows nothing: its width is 0", "give field 6 its width");
  }
}

void DrawingCheck::CheckCounts() {
  constexpr std::size_t kFirstTooMany = 32767;
  const auto check = [&](std::size_t count, model::RecordTable table, auto&& lineOf) {
    const std::string fault = FaultOf([&] { model::CountIn16Bits(count, table); });
    if (!fault.empty()) Error("too-many", lineOf(kFirstTooMany), fault, "split the package");
  };
  const auto at = [](const std::vector<std::size_t>& lines) {
    return [&](std::size_t i) { return lines[i]; };
  };
  const auto padAt = [](const std::vector<BondLines>& lines) {
    return [&](std::size_t i) { return lines[i].Pad; };
  };
  check(package_.Bonds.Count(), model::RecordTable::Bonds, padAt(lines_.Bonds));
  check(package_.SDBonds.Count(), model::RecordTable::SDBonds, padAt(lines_.SDBonds));
  check(package_.Stitches.Count(), model::RecordTable::Stitches, at(lines_.Stitches));
  check(package_.Rings.Count(), model::RecordTable::Rings, at(lines_.Rings));
  check(package_.SRings.Count(), model::RecordTable::SRings, at(lines_.SRings));
}

void DrawingCheck::NotePads(const model::Table<BondRec>& bonds, const std::vector<BondLines>& lines) {
  const auto note = [&](const char* kind, std::size_t line, std::string what) {
    report_.Remarks.push_back({formats::Level::Note, kind, {report_.File, line}, std::move(what), ""});
  };
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    const bool wire = lines[i].Wire != 0;
    const bool stitch = lines_.StitchedPads.contains(bonds[i].Name);
    if (lines[i].Again) continue;
    const std::string pad = "the die pad " + formats::Shown(bonds[i].Name);
    if (!wire && !stitch) note("pads-without-wire", lines[i].Pad, pad + " has no wire");
    // A pad with nothing but stitches needs none.
    if (lines[i].SubstratePad == 0 && (wire || !stitch))
      note("pads-without-substrate-pad", lines[i].Pad, pad + " has no substrate pad");
  }
}

void DrawingCheck::Run() {
  CheckHeights();
  CheckTechnology();
  CheckDiePads(package_.Bonds, lines_.Bonds);
  CheckDiePads(package_.SDBonds, lines_.SDBonds);
  CheckBaseDie();
  CheckStackedDie();
  if (package_.Technology == "WIRE_BOND") {
    CheckBonds(package_.Bonds, lines_.Bonds);
    CheckBonds(package_.SDBonds, lines_.SDBonds);
    CheckLoops();
    CheckRings();
    CheckSRings();
    CheckBands();
    CheckCounts();
    NotePads(package_.Bonds, lines_.Bonds);
    NotePads(package_.SDBonds, lines_.SDBonds);
  }
  if (report_.Count(formats::Level::Error) != 0) return;
  // The whole drawing finds what no check above looks for.
  const std::string fault = FaultOf([&] { scene_.DrawPackage(); });
  if (!fault.empty()) Error("fault", 0, fault, "correct the record that it names");
}

}  // namespace

void CheckDrawing(const model::Package& package, const PackageLines& lines, formats::CheckReport& report) {
  DrawingCheck(package, lines, report).Run();
}

}  // namespace analysis
