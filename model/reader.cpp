#include "model/reader.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/arithmetic.h"
#include "model/files.h"
#include "model/name_index.h"
#include "model/numbers.h"
#include "model/package_header.h"
#include "model/text.h"

namespace model {

namespace {

/// A keyword of at most seven letters as one number, so that a line is told by a single comparison.
/// The leading 1 keeps a NUL byte in front of a word from vanishing.
constexpr std::uint64_t Key(std::string_view word) {
  std::uint64_t key = 1;
  if (word.size() > 7) return 0;
  for (const char c : word)
    key = key << 8 | static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return key;
}

/// One run over a package file. The name index views the file's text and dies with it.
class PackageReader {
 public:
  explicit PackageReader(const PackageScalars& before) { static_cast<PackageScalars&>(package_) = before; }

  void ReadText(std::string text) {
    text_ = std::move(text);
    DropCarriageReturns(text_);
    Lines lines(text_);
    if (ReadHeader(lines)) ReadBody(lines);
  }

  void ReadNetTypes(std::string_view text);
  void SetTiers();

  Package& Result() { return package_; }
  std::size_t Comparisons() const { return index_.Comparisons(); }

 private:
  bool NextRecord(Lines& lines);
  bool ReadHeader(Lines& lines);
  void ReserveTables(Lines lines);
  void ReadBody(Lines& lines);
  void BodyLine();
  void ReadDiePad(bool stacked);
  void ReadSubstratePad();
  void ReadWire();
  void ReadStitch();
  void ReadRing();
  void ReadSRing();
  void ReadSegment();
  void ReadDap();
  BondRec* FindBond(std::uint32_t name);
  const BondRec* LastBond(std::uint32_t name);
  void AddWireName(std::uint32_t name, std::string_view text, std::string_view text2);
  float Scaled(std::size_t field) const { return ToNumber(tokens_[field]) / package_.UnitScale; }

  Package package_;
  std::string text_;
  Tokens tokens_;
  NameIndex index_;
  std::vector<std::uint32_t> wirePlaces_;  ///< number in the index of each wire-list entry's name
};

/// Splits the next line that is not empty; false at the end of the file.
bool PackageReader::NextRecord(Lines& lines) {
  std::string_view line;
  do {
    if (!lines.Next(line)) return false;
  } while (line.empty());
  tokens_.SplitLine(line);
  return true;
}

/// Reads up to and including the line that ends the header; false when the file has none.
bool PackageReader::ReadHeader(Lines& lines) {
  while (NextRecord(lines)) {
    if (TakeHeaderLine(tokens_, package_)) return true;
  }
  return false;
}

/// Makes room for the long tables at once, since widening them step by step moves every record and touches
/// memory for nothing. The lines' first letters are guess enough.
void PackageReader::ReserveTables(Lines lines) {
  std::size_t bonds = 0;
  std::size_t stackedBonds = 0;
  std::size_t wireNames = 0;
  std::string_view line;
  while (lines.Next(line)) {
    bonds += line.starts_with("CB") ? 1 : 0;
    stackedBonds += line.starts_with("SD") ? 1 : 0;
    wireNames += line.starts_with("WB") || line.starts_with("ST") ? 1 : 0;
  }
  package_.Bonds.Reserve(bonds);
  package_.SDBonds.Reserve(stackedBonds);
  package_.WireNames.Reserve(wireNames);
  wirePlaces_.reserve(wireNames);
  index_.Reserve(bonds + stackedBonds);
}

void PackageReader::ReadBody(Lines& lines) {
  ReserveTables(lines);
  while (NextRecord(lines)) BodyLine();
}

void PackageReader::BodyLine() {
  switch (Key(tokens_[0])) {
    case Key("CBP"):
      return ReadDiePad(false);
    case Key("SD_CBP"):
      return ReadDiePad(true);
    case Key("SBP"):
      return ReadSubstratePad();
    case Key("WB"):
      return ReadWire();
    case Key("STCH"):
      return ReadStitch();
    case Key("RING"):
      return ReadRing();
    case Key("SRING"):
      return ReadSRing();
    case Key("SRSEG"):
      return ReadSegment();
    case Key("DAP"):
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
  // Deliberate: on the base die the sizes change places by side, on the stacked die always.
  const bool exchanged = stacked || tokens_[8] == "T" || tokens_[8] == "B";
  bond.DieSizeX = Scaled(exchanged ? 6 : 5);
  bond.DieSizeY = Scaled(exchanged ? 5 : 6);
  bond.DieSide = tokens_[8];
  bond.DieShape = tokens_[9];

  NamePlaces& places = index_.At(index_.Add(tokens_[1]));
  const auto number = static_cast<std::uint32_t>(table.UpperBound());
  std::uint32_t& first = stacked ? places.firstSDBond : places.firstBond;
  if (first == NamePlaces::kNone) first = number;
  (stacked ? places.lastSDBond : places.lastBond) = number;
  table.Grow();
}

/// The bond that SBP and WB mean: the first of that name, on the base die before the stacked one.
BondRec* PackageReader::FindBond(std::uint32_t name) {
  if (name == NamePlaces::kNone) return nullptr;
  const NamePlaces& places = index_.At(name);
  if (places.firstBond != NamePlaces::kNone) return &package_.Bonds[places.firstBond];
  if (places.firstSDBond != NamePlaces::kNone) return &package_.SDBonds[places.firstSDBond];
  return nullptr;
}

/// The bond that a stitch copies from: the last of that name over both tables.
const BondRec* PackageReader::LastBond(std::uint32_t name) {
  if (name == NamePlaces::kNone) return nullptr;
  const NamePlaces& places = index_.At(name);
  if (places.lastSDBond != NamePlaces::kNone) return &package_.SDBonds[places.lastSDBond];
  if (places.lastBond != NamePlaces::kNone) return &package_.Bonds[places.lastBond];
  return nullptr;
}

void PackageReader::ReadSubstratePad() {
  BondRec* bond = FindBond(index_.Find(tokens_[1]));
  if (bond == nullptr) return;
  bond->SubX = Scaled(2);
  bond->SubY = Scaled(3);
  bond->SubZ = 0.0F;
  bond->SubSizeX = Scaled(5);
  bond->SubSizeY = Scaled(6);
  bond->SubAngle = ToNumber(tokens_[7]);
  bond->SubShape = tokens_[8];
  bond->Tier = tokens_[10];
}

void PackageReader::ReadWire() {
  const std::uint32_t name = index_.Find(tokens_[1]);
  BondRec* bond = FindBond(name);
  if (bond == nullptr) return;
  bond->WireStartX = Scaled(2);
  bond->WireStartY = Scaled(3);
  bond->WireStartZ = Scaled(7);
  bond->WireEndX = Scaled(5);
  bond->WireEndY = Scaled(6);
  bond->WireEndZ = Scaled(8);
  AddWireName(name, tokens_[1], {});
}

void PackageReader::ReadStitch() {
  StitchRec& stitch = package_.Stitches.Spare();
  stitch.Name.append(tokens_[1]).append(":").append(tokens_[4]);
  stitch.X1 = Scaled(2);
  stitch.Y1 = Scaled(3);
  stitch.Z1 = Scaled(7);
  stitch.X2 = Scaled(5);
  stitch.Y2 = Scaled(6);
  stitch.Z2 = Scaled(8);
  const std::uint32_t name = index_.Add(tokens_[1]);
  if (const BondRec* bond = LastBond(name)) stitch.PadSize1 = bond->DieSizeY;
  if (const BondRec* bond = LastBond(index_.Find(tokens_[4]))) stitch.PadSize2 = bond->DieSizeY;
  AddWireName(name, tokens_[1], tokens_[4]);
  package_.Stitches.Grow();
}

void PackageReader::AddWireName(std::uint32_t name, std::string_view text, std::string_view text2) {
  WireNameRec& entry = package_.WireNames.Spare();
  entry.Name = text;
  entry.Name2 = text2;
  wirePlaces_.push_back(name);
  NamePlaces& places = index_.At(name);
  if (places.firstWire == NamePlaces::kNone)
    places.firstWire = static_cast<std::uint32_t>(package_.WireNames.UpperBound());
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
  if (places.firstSRing == NamePlaces::kNone)
    places.firstSRing = static_cast<std::uint32_t>(package_.SRings.UpperBound());
  package_.SRings.Grow();
}

void PackageReader::ReadSegment() {
  const std::uint32_t name = index_.Find(tokens_[1]);
  if (name == NamePlaces::kNone || index_.At(name).firstSRing == NamePlaces::kNone) return;
  Table<SRSegRec>& segments = package_.SRings[index_.At(name).firstSRing].Segs;
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

/// The side file: a wire name and its net type on each line of exactly two fields.
void PackageReader::ReadNetTypes(std::string_view text) {
  Lines lines(text);
  std::string_view line;
  while (lines.Next(line)) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    tokens_.SplitLine(line);
    if (tokens_.Found() != 2) continue;
    const std::uint32_t name = index_.Find(tokens_[0]);
    if (name == NamePlaces::kNone || index_.At(name).firstWire == NamePlaces::kNone) continue;
    package_.WireNames[index_.At(name).firstWire].NetType = tokens_[1];
  }
  package_.HaveVuFile = true;
}

/// Copies the tiers of the bonds into the wire list, counted from 1 even where the file counts from 0.
void PackageReader::SetTiers() {
  std::string lowest = "4";
  float lowestNumber = 4.0F;
  const auto copyFrom = [&](const Table<BondRec>& table, std::uint32_t NamePlaces::*first) {
    for (std::size_t i = 0; i < wirePlaces_.size(); ++i) {
      const std::uint32_t number = index_.At(wirePlaces_[i]).*first;
      if (number == NamePlaces::kNone) continue;
      const std::string& tier = table[number].Tier;
      package_.WireNames[i].Tier = tier;
      const float tierNumber = ToNumber(tier);
      if (!(lowestNumber > tierNumber)) continue;
      lowest = tier;
      lowestNumber = tierNumber;
    }
  };
  copyFrom(package_.Bonds, &NamePlaces::firstBond);
  copyFrom(package_.SDBonds, &NamePlaces::firstSDBond);
  if (lowest != "0") return;
  for (WireNameRec& entry : package_.WireNames)
    entry.Tier = GeneralText(Single(double(ToNumber(entry.Tier)) + 1.0));
}

}  // namespace

Package ParsePackage(const PackageScalars& before, PackageBytes bytes, ReadEffort* effort) {
  PackageReader reader(before);
  reader.ReadText(std::move(bytes.package));
  if (bytes.netTypes) reader.ReadNetTypes(*bytes.netTypes);
  reader.SetTiers();
  if (effort != nullptr) effort->nameComparisons = reader.Comparisons();
  return std::move(reader.Result());
}

std::optional<Package> ReadPackage(const PackageScalars& before, ReadEffort* effort) {
  const std::string& path = before.PackagePath;
  if (path.empty() || !FileExists(path)) return std::nullopt;
  PackageBytes bytes{ReadWholeFile(path), std::nullopt};
  const std::string sideFile = path + ".vu";
  if (FileExists(sideFile)) bytes.netTypes = ReadWholeFile(sideFile);
  return ParsePackage(before, std::move(bytes), effort);
}

}  // namespace model
