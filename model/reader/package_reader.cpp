#include "model/reader/read_package.h"

#include <cstdint>
#include <string>
#include <string_view>

#include "model/files.h"
#include "model/reader/package_reader.h"

namespace model::reader {

/// Splits the next line that is not empty; false at the end of the file.
bool PackageReader::NextRecord(Lines& lines) {
  std::string_view line;
  do {
    if (!lines.Next(line)) return false;
    ++line_;
  } while (line.empty());
  tokens_.SplitLine(line);
  return true;
}

/// Reads up to and including the line that ends the header; false when the file has none.
bool PackageReader::ReadHeader(Lines& lines) {
  while (NextRecord(lines)) {
    const Keyword keyword = KeywordOf(tokens_[0]);
    TakeHeaderLine(keyword, tokens_, package_);
    if (observer_ != nullptr) NoteHeaderLine(keyword);
    if (keyword == Keyword::CompZ) return true;
  }
  return false;
}

/// Reserves the long tables at once: growing them step by step would move every record. The first letters of
/// the lines give a good enough estimate.
void PackageReader::ReserveTables(Lines lines) {
  std::size_t bonds = 0;
  std::size_t stackedBonds = 0;
  std::size_t wireNames = 0;
  std::string_view line;
  while (lines.Next(line)) {
    if (line.starts_with("CB")) ++bonds;
    if (line.starts_with("SD")) ++stackedBonds;
    if (line.starts_with("WB") || line.starts_with("ST")) ++wireNames;
  }
  package_.Bonds.Reserve(bonds);
  package_.SDBonds.Reserve(stackedBonds);
  package_.WireNames.Reserve(wireNames);
  wirePlaces_.reserve(wireNames);
  index_.Reserve(bonds + stackedBonds);
}

void PackageReader::ReadBody(Lines& lines) {
  ReserveTables(lines);
  while (NextRecord(lines)) {
    const Keyword keyword = KeywordOf(tokens_[0]);
    BodyLine(keyword);
    if (observer_ != nullptr) NoteBodyLine(keyword);
  }
}

void PackageReader::BodyLine(Keyword keyword) {
  switch (keyword) {
    case Keyword::Cbp:
      return ReadDiePad(false);
    case Keyword::SdCbp:
      return ReadDiePad(true);
    case Keyword::Sbp:
      return ReadSubstratePad();
    case Keyword::Wb:
      return ReadWire();
    case Keyword::Stch:
      return ReadStitch();
    case Keyword::Ring:
      return ReadRing();
    case Keyword::SRing:
      return ReadSRing();
    case Keyword::SrSeg:
      return ReadSegment();
    case Keyword::Dap:
      return ReadDap();
    default:
      return;
  }
}

void PackageReader::ReadDiePad(bool stacked) {
  Table<BondRec>& table = stacked ? package_.SDBonds : package_.Bonds;
  BondRec& bond = table.Spare();
  bond.Name = tokens_[1];
  bond.DieX = Scaled(2);
  bond.DieY = Scaled(3);
  // Deliberate: pads of the stacked die take the base die's height too.
  bond.DieZ = package_.CompZ;
  const bool exchanged = SizesExchanged(stacked, tokens_[8]);
  bond.DieSizeX = Scaled(exchanged ? 6 : 5);
  bond.DieSizeY = Scaled(exchanged ? 5 : 6);
  bond.DieSide = tokens_[8];
  bond.DieShape = tokens_[9];

  NamePlaces& places = index_.At(index_.Add(tokens_[1]));
  const auto number = static_cast<std::uint32_t>(table.UpperBound());
  std::uint32_t& first = stacked ? places.FirstSDBond : places.FirstBond;
  if (first == NamePlaces::kNone) first = number;
  (stacked ? places.LastSDBond : places.LastBond) = number;
  table.Grow();
}

/// The bond that an SBP or WB line names: the first of that name, on the base die before the stacked one.
RecordPlace PackageReader::BondPlace(std::uint32_t name, BondPart part) {
  if (name == NamePlaces::kNone) return {};
  const NamePlaces& places = index_.At(name);
  if (places.FirstBond != NamePlaces::kNone) return {RecordTable::Bonds, places.FirstBond, part};
  if (places.FirstSDBond != NamePlaces::kNone) return {RecordTable::SDBonds, places.FirstSDBond, part};
  return {};
}

BondRec* PackageReader::BondAt(const RecordPlace& place) {
  if (place.Table == RecordTable::None) return nullptr;
  return &(place.Table == RecordTable::Bonds ? package_.Bonds : package_.SDBonds)[place.Number];
}

/// The bond that a stitch copies from: the last of that name over both tables.
const BondRec* PackageReader::LastBond(std::uint32_t name) {
  if (name == NamePlaces::kNone) return nullptr;
  const NamePlaces& places = index_.At(name);
  if (places.LastSDBond != NamePlaces::kNone) return &package_.SDBonds[places.LastSDBond];
  if (places.LastBond != NamePlaces::kNone) return &package_.Bonds[places.LastBond];
  return nullptr;
}

void PackageReader::ReadSubstratePad() {
  BondRec* const bond = BondAt(BondPlace(index_.Find(tokens_[1]), BondPart::SubstratePad));
  if (bond == nullptr) return;
  bond->SubX = Scaled(2);
  bond->SubY = Scaled(3);
  bond->SubZ = 0.0F;
  bond->SubSizeX = Scaled(5);
  bond->SubSizeY = Scaled(6);
  bond->SubAngle = Number(7);
  bond->SubShape = tokens_[8];
  bond->Tier = tokens_[10];
}

void PackageReader::ReadWire() {
  const std::uint32_t name = index_.Find(tokens_[1]);
  const RecordPlace place = BondPlace(name, BondPart::Wire);
  BondRec* const bond = BondAt(place);
  if (bond == nullptr) return;
  bond->WireStartX = Scaled(2);
  bond->WireStartY = Scaled(3);
  bond->WireStartZ = Scaled(7);
  bond->Lead = tokens_[4];
  bond->WireEndX = Scaled(5);
  bond->WireEndY = Scaled(6);
  bond->WireEndZ = Scaled(8);
  AddWireName(place, name, tokens_[1], {});
}

void PackageReader::ReadStitch() {
  StitchRec& stitch = package_.Stitches.Spare();
  stitch.Name.append(tokens_[1]).append(":").append(tokens_[4]);
  stitch.Pad1 = tokens_[1];
  stitch.Pad2 = tokens_[4];
  stitch.X1 = Scaled(2);
  stitch.Y1 = Scaled(3);
  stitch.Z1 = Scaled(7);
  stitch.X2 = Scaled(5);
  stitch.Y2 = Scaled(6);
  stitch.Z2 = Scaled(8);
  const std::uint32_t name = index_.Add(tokens_[1]);
  if (const BondRec* bond = LastBond(name)) stitch.PadSize1 = bond->DieSizeY;
  if (const BondRec* bond = LastBond(index_.Find(tokens_[4]))) stitch.PadSize2 = bond->DieSizeY;
  AddWireName({RecordTable::Stitches, package_.Stitches.UpperBound()}, name, tokens_[1], tokens_[4]);
  package_.Stitches.Grow();
}

void PackageReader::AddWireName(const RecordPlace& wire, std::uint32_t name, std::string_view text,
                                std::string_view text2) {
  WireNameRec& entry = package_.WireNames.Spare();
  entry.Wire = wire;
  entry.Name = text;
  entry.Name2 = text2;
  wirePlaces_.push_back(name);
  NamePlaces& places = index_.At(name);
  if (places.FirstWire == NamePlaces::kNone)
    places.FirstWire = static_cast<std::uint32_t>(package_.WireNames.UpperBound());
  package_.WireNames.Grow();
}

void PackageReader::ReadRing() {
  RingRec& ring = package_.Rings.Spare();
  ring.Kind = tokens_[2];
  ring.X1 = Scaled(3);
  ring.Y1 = Scaled(4);
  ring.X2 = Scaled(5);
  ring.Y2 = Scaled(6);
  ring.Width = Scaled(7);
  ring.Param = Scaled(8);
  package_.Rings.Grow();
}

void PackageReader::ReadSRing() {
  SRingRec& ring = package_.SRings.Spare();
  ring.Name = tokens_[1];
  ring.Kind = tokens_[2];
  ring.X1 = Scaled(3);
  ring.Y1 = Scaled(4);
  ring.X2 = Scaled(5);
  ring.Y2 = Scaled(6);
  ring.Width = Scaled(7);
  ring.Param = Scaled(8);
  NamePlaces& places = index_.At(index_.Add(tokens_[1]));
  if (places.FirstSRing == NamePlaces::kNone)
    places.FirstSRing = static_cast<std::uint32_t>(package_.SRings.UpperBound());
  package_.SRings.Grow();
}

/// The ring that an SRSEG line names: the first of that name.
RecordPlace PackageReader::RingPlace(std::uint32_t name) {
  if (name == NamePlaces::kNone || index_.At(name).FirstSRing == NamePlaces::kNone) return {};
  return {RecordTable::SRings, index_.At(name).FirstSRing};
}

void PackageReader::ReadSegment() {
  const RecordPlace ring = RingPlace(index_.Find(tokens_[1]));
  if (ring.Table == RecordTable::None) return;
  Table<SRSegRec>& segments = package_.SRings[ring.Number].Segs;
  SRSegRec& segment = segments.Spare();
  segment.Name = tokens_[2];
  segment.A = Scaled(3);
  segment.B = Scaled(4);
  segments.Grow();
}

void PackageReader::ReadDap() {
  DapRec& dap = package_.Daps.Spare();
  dap.Name = tokens_[1];
  dap.D1 = Scaled(2);
  dap.D2 = Scaled(3);
  dap.D3 = Scaled(4);
  dap.D4 = Scaled(5);
  dap.D5 = Scaled(6);
  package_.Daps.Grow();
}

Package ParsePackage(const PackageScalars& before, PackageBytes bytes, ReadObserver* observer) {
  PackageReader reader(before, observer);
  reader.ReadText(std::move(bytes.PackageFile));
  if (bytes.SideFile) reader.ReadSideFile(*bytes.SideFile);
  reader.SetWireTiers();
  return std::move(reader.Result());
}

std::optional<Package> ReadPackage(const PackageScalars& before, ReadObserver* observer) {
  const std::string& path = before.PackagePath;
  if (path.empty() || !FileExists(path)) return std::nullopt;
  PackageBytes bytes{ReadWholeFile(path), std::nullopt};
  const std::string sideFile = path + ".vu";
  if (FileExists(sideFile)) bytes.SideFile = ReadWholeFile(sideFile);
  return ParsePackage(before, std::move(bytes), observer);
}

}  // namespace model::reader
