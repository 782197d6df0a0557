#include "model/reader/package_writer.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "model/numbers.h"
#include "model/reader/keywords.h"
#include "model/reader/package_header.h"

namespace model::reader {

namespace {

/// The shortest text, of seven to nine digits, that `read` converts to this value.
template <class Read>
std::string NumberText(float value, float scale, Read&& read) {
  constexpr int kFewest = 7;
  constexpr int kMost = 9;
  const auto inFile = static_cast<float>(double(value) * double(scale));
  for (int digits = kFewest; digits < kMost; ++digits) {
    std::string text = GeneralText(inFile, digits);
    if (read(ToNumber(text)) == value) return text;
  }
  return GeneralText(inFile, kMost);
}

class PackageWriter {
 public:
  explicit PackageWriter(const Package& package) : package_(package) {}

  std::string Text() {
    WriteHeader();
    WritePads(package_.SDBonds, true);
    WritePads(package_.Bonds, false);
    WriteSubstratePads(package_.SDBonds);
    WriteSubstratePads(package_.Bonds);
    WriteWires();
    WriteRings();
    for (const DapRec& dap : package_.Daps)
      Line("DAP", {dap.Name, Length(dap.D1), Length(dap.D2), Length(dap.D3), Length(dap.D4), Length(dap.D5)});
    return std::move(text_);
  }

 private:
  void WriteHeader();
  void WritePads(const Table<BondRec>& bonds, bool stacked);
  void WriteSubstratePads(const Table<BondRec>& bonds);
  void WriteWires();
  void WriteWire(const BondRec& bond);
  void WriteStitch(const StitchRec& stitch);
  void WriteRings();
  void Line(std::string_view keyword, std::vector<std::string> fields);

  std::string Length(float value) const {
    const float scale = package_.UnitScale;
    return NumberText(value, scale, [scale](float read) { return read / scale; });
  }
  /// A header length, which the reader divides by ten repeatedly.
  std::string HeaderLength(float value) const {
    return NumberText(value, package_.UnitScale, [this](float read) {
      for (float scale = 1.0F; scale < package_.UnitScale; scale *= 10.0F) read /= 10.0F;
      return read;
    });
  }
  static std::string Angle(float value) {
    return NumberText(value, 1.0F, [](float read) { return read; });
  }

  const Package& package_;
  std::string text_;
};

/// Writes  a line. An empty field cannot be written, so the fields from the first empty one on are dropped
///         when all of them are empty or "0", which the reader assumes for missing fields.
void PackageWriter::Line(std::string_view keyword, std::vector<std::string> fields) {
  const auto empty = std::find(fields.begin(), fields.end(), "");
  const bool nothingBehind = std::all_of(
      empty, fields.end(), [](const std::string& field) { return field.empty() || field == "0"; });
  if (nothingBehind) fields.erase(empty, fields.end());
  text_ += keyword;
  for (const std::string& field : fields) text_.append(" ").append(FieldName(field));
  text_ += '\n';
}

void PackageWriter::WriteHeader() {
  Line("TECHNOLOGY", {package_.Technology});
  Line("SD_TECHNOLOGY", {package_.SDTechnology});
  Line("SD_ROTATION", {Angle(package_.SDRotation)});
  Line("SD_XOFFSET", {HeaderLength(package_.SDXOffset)});
  Line("SD_YOFFSET", {HeaderLength(package_.SDYOffset)});
  Line("SD_COMPL", {HeaderLength(package_.SDCompL)});
  Line("SD_COMPW", {HeaderLength(package_.SDCompW)});
  Line("SD_COMPZ", {HeaderLength(package_.SDCompZ)});
  Line("COMPL", {HeaderLength(package_.CompL)});
  Line("COMPW", {HeaderLength(package_.CompW)});
  Line("COMPZ", {HeaderLength(package_.CompZ)});
}

void PackageWriter::WritePads(const Table<BondRec>& bonds, bool stacked) {
  std::size_t number = 0;
  for (const BondRec& bond : bonds) {
    const bool exchanged = SizesExchanged(stacked, bond.DieSide);
    Line(stacked ? "SD_CBP" : "CBP",
         {bond.Name, Length(bond.DieX), Length(bond.DieY), bond.Name.empty() ? "0" : std::to_string(++number),
          Length(exchanged ? bond.DieSizeY : bond.DieSizeX),
          Length(exchanged ? bond.DieSizeX : bond.DieSizeY), "0", bond.DieSide, bond.DieShape});
  }
}

void PackageWriter::WriteSubstratePads(const Table<BondRec>& bonds) {
  for (const BondRec& bond : bonds) {
    const bool none = bond.SubX == 0.0F && bond.SubY == 0.0F && bond.SubSizeX == 0.0F &&
                      bond.SubSizeY == 0.0F && bond.SubAngle == 0.0F && bond.SubShape.empty() &&
                      bond.Tier.empty();
    if (none) continue;
    Line("SBP", {bond.Name, Length(bond.SubX), Length(bond.SubY), "0", Length(bond.SubSizeX),
                 Length(bond.SubSizeY), Angle(bond.SubAngle), bond.SubShape, "1", bond.Tier});
  }
}

/// In the order of the wire list, so that reading rebuilds the same list.
void PackageWriter::WriteWires() {
  for (const WireNameRec& entry : package_.WireNames) {
    const auto& [table, number, part] = entry.Wire;
    if (table == RecordTable::Stitches)
      WriteStitch(package_.Stitches[number]);
    else
      WriteWire((table == RecordTable::Bonds ? package_.Bonds : package_.SDBonds)[number]);
  }
}

void PackageWriter::WriteWire(const BondRec& bond) {
  Line("WB",
       {bond.Name, Length(bond.WireStartX), Length(bond.WireStartY), bond.Lead.empty() ? "-" : bond.Lead,
        Length(bond.WireEndX), Length(bond.WireEndY), Length(bond.WireStartZ), Length(bond.WireEndZ)});
}

void PackageWriter::WriteStitch(const StitchRec& stitch) {
  Line("STCH", {stitch.Pad1, Length(stitch.X1), Length(stitch.Y1), stitch.Pad2, Length(stitch.X2),
                Length(stitch.Y2), Length(stitch.Z1), Length(stitch.Z2)});
}

void PackageWriter::WriteRings() {
  const auto sides = [this](const auto& ring, const std::string& name) {
    return std::vector<std::string>{name,
                                    ring.Kind,
                                    Length(ring.X1),
                                    Length(ring.Y1),
                                    Length(ring.X2),
                                    Length(ring.Y2),
                                    Length(ring.Width),
                                    Length(ring.Param)};
  };
  std::size_t number = 0;
  for (const RingRec& ring : package_.Rings) Line("RING", sides(ring, "RING" + std::to_string(++number)));
  for (const SRingRec& ring : package_.SRings) {
    Line("SRING", sides(ring, ring.Name));
    for (const SRSegRec& segment : ring.Segs)
      Line("SRSEG", {ring.Name, segment.Name, Length(segment.A), Length(segment.B)});
  }
}

}  // namespace

std::string PackageText(const Package& package) { return PackageWriter(package).Text(); }

std::string NetTypesText(const Package& package) {
  std::string text;
  std::unordered_set<std::string_view> written;
  for (const WireNameRec& entry : package.WireNames) {
    // The reader gives a type to the first entry of its name.
    if (entry.NetType.empty() || !written.insert(entry.Name).second) continue;
    text.append(FieldName(entry.Name)).append(" ").append(FieldName(entry.NetType)).append("\n");
  }
  return text;
}

std::string FieldName(std::string_view name) {
  std::string field(name.empty() ? "_" : name);
  for (char& letter : field)
    if (static_cast<unsigned char>(letter) <= ' ' || letter == '\x7f') letter = '_';
  return field;
}

float UnitScaleOf(float width, float length) {
  PackageScalars scalars;
  scalars.CompW = width;
  scalars.CompL = length;
  Tokens end;
  end.SplitLine("COMPZ 1");
  TakeHeaderLine(Keyword::CompZ, end, scalars);
  return scalars.UnitScale;
}

}  // namespace model::reader
