#include "model/reader/package_writer.h"

#include "tests/model/package_text.h"

namespace model {
namespace {

std::string TextOf(const BondRec& bond) {
  return Fields(bond.Name, bond.DieX, bond.DieY, bond.DieZ, bond.DieSizeX, bond.DieSizeY, bond.DieSide,
                bond.DieShape, bond.Tier, bond.SubX, bond.SubY, bond.SubSizeX, bond.SubSizeY, bond.SubAngle,
                bond.SubShape, bond.WireStartX, bond.WireStartY, bond.WireStartZ, bond.WireEndX,
                bond.WireEndY, bond.WireEndZ, bond.Lead);
}

/// Every field of a package, a record a line.
std::string TextOf(const Package& package) {
  std::string text = Fields(package.Technology, package.UnitScale, package.CompL, package.CompW,
                            package.CompZ, package.SDCompL, package.SDCompW, package.SDCompZ,
                            package.SDTechnology, package.SDRotation, package.SDXOffset, package.SDYOffset);
  const auto add = [&text](const std::string& line) { (text += '\n') += line; };
  for (const BondRec& bond : package.Bonds) add("base " + TextOf(bond));
  for (const BondRec& bond : package.SDBonds) add("stacked " + TextOf(bond));
  for (const StitchRec& stitch : package.Stitches)
    add(Fields(stitch.Name, stitch.X1, stitch.X2, stitch.Y1, stitch.PadSize1, stitch.Y2, stitch.Z1, stitch.Z2,
               stitch.PadSize2));
  for (const RingRec& ring : package.Rings)
    add(Fields(ring.X1, ring.X2, ring.Y1, ring.Y2, ring.Width, ring.Kind, ring.Param));
  for (const SRingRec& ring : package.SRings) {
    add(Fields(ring.Name, ring.X1, ring.X2, ring.Y1, ring.Y2, ring.Width, ring.Kind, ring.Param));
    for (const SRSegRec& segment : ring.Segs) add(Fields(segment.Name, segment.A, segment.B));
  }
  for (const DapRec& dap : package.Daps) add(Fields(dap.Name, dap.D1, dap.D2, dap.D3, dap.D4, dap.D5));
  for (const WireNameRec& entry : package.WireNames)
    add(Fields(entry.Name, entry.Name2, entry.NetType, entry.Tier));
  return text;
}

std::string WrittenAndRead(const Package& package) {
  return TextOf(reader::ParsePackage({}, {reader::PackageText(package), reader::NetTypesText(package)}));
}

TEST(PackageWriter, WritesEveryKindOfRecord) {
  for (const std::string text : {
           "COMPL 131.5\nCOMPW 99\nCOMPZ 11\nCBP A 12.34567 -8.7654321 1 2 3 0 L RECTANGLE\nWB A 1 2 LEAD7 3 "
           "4 5 6\n",
           "COMPW 0.1\nCOMPZ 0.3333333\nCBP A 0.1 0.2 1 2 3 0 T ROUND\nSBP A 1 2 0 3 4 33.333333 OBLONG 1 "
           "0\nWB A 1 2 - 3 4 5\n",
           "TECHNOLOGY FLIP_CHIP\nSD_TECHNOLOGY X\nSD_COMPW 1e-6\nCOMPZ 123456789\nCBP A 1e9 1e-9\n",
           "COMPL 25\nSD_COMPL 2\nSD_COMPZ 3\nSD_XOFFSET 4\nSD_YOFFSET 5\nSD_ROTATION 6\nCOMPZ 7\n",
           "COMPZ 1\nCBP\nCBP A\nWB A\nSTCH A 1 2 B 3 4 5 6\nWB A 1 2 L 3 4\nSTCH C\nSRING R ARC 1 2 3 4 5 "
           "6\n"
           "SRSEG R L 1 2\nRING X\nDAP D 1 2 3 4 5\nSD_CBP S 1 2 3 4 5 6 L RECTANGLE\nWB S 1 1 N 2 2 3 3\n",
       }) {
    const Package package = reader::ParsePackage({}, {text, "A POWER\nC GROUND\n"});
    EXPECT_EQ(WrittenAndRead(package), TextOf(package)) << text;
  }
}

TEST(PackageWriter, WritesTheShortestNumbersThatReadTheSame) {
  const Package package =
      reader::ParsePackage({}, {"COMPL 5200\nCOMPW 3600\nCOMPZ 280\nCBP A -824.5 0.1\n", {}});
  EXPECT_EQ(package.UnitScale, 1000.0F);
  const std::string text = reader::PackageText(package);
  EXPECT_NE(text.find("\nCOMPL 5200\nCOMPW 3600\nCOMPZ 280\nCBP A -824.5 0.1 1 0 0 0\n"), std::string::npos)
      << text;
}

TEST(PackageWriter, ReplacesWhatAFieldCannotHoldInNames) {
  EXPECT_EQ(reader::FieldName("a b\tc\x01\x7f"), "a_b_c__");
  EXPECT_EQ(reader::FieldName(""), "_");
  Package package;
  package.CompZ = 1.0F;
  package.Bonds.Spare().Name = "V DD";
  package.Bonds.Spare().DieShape = "ROUND";
  package.Bonds.Grow();
  // The field after an empty one would take its place.
  EXPECT_NE(reader::PackageText(package).find("CBP V_DD 0 0 1 0 0 0 _ ROUND\n"), std::string::npos);
}

}  // namespace
}  // namespace model
