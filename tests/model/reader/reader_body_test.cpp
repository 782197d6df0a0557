#include "model/package.h"
#include "tests/model/package_text.h"

namespace model {
namespace {

using ReaderBody = PackageText;

std::string PadOnDie(const BondRec& bond) {
  return Fields(bond.Name, bond.DieX, bond.DieY, bond.DieZ, bond.DieSizeX, bond.DieSizeY, bond.DieSide,
                bond.DieShape);
}
std::string PadOnSubstrate(const BondRec& bond) {
  return Fields(bond.SubX, bond.SubY, bond.SubZ, bond.SubSizeX, bond.SubSizeY, bond.SubAngle, bond.SubShape,
                bond.Tier);
}
std::string Wire(const BondRec& bond) {
  return Fields(bond.WireStartX, bond.WireStartY, bond.WireStartZ, bond.WireEndX, bond.WireEndY,
                bond.WireEndZ);
}

// Sizes 4 and 2 stand in fields 5 and 6. The base die exchanges them by the exact side letter, the stacked
// die always; both take the base die's height.
TEST_F(ReaderBody, SizesChangePlacesBySideOnTheBaseDieOnly) {
  for (const std::string side : {"L", "R", "T", "B", "t", "b", "TB", ""}) {
    const std::string fields = " A 1 -2 17 4 2 9 " + side + "\n";
    const Package package = Read("SD_COMPZ 9\nCOMPZ 3\ncbp" + fields + "SD_CBP" + fields);
    const std::string sizes = side == "T" || side == "B" ? "2 4" : "4 2";
    EXPECT_EQ(PadOnDie(package.Bonds[0]), "'A' 1 -2 3 " + sizes + " '" + side + "' ''");
    EXPECT_EQ(PadOnDie(package.SDBonds[0]), "'A' 1 -2 3 2 4 '" + side + "' ''");
    EXPECT_EQ(PadOnDie(package.Bonds[1]), "'' 0 0 0 0 0 '' ''") << "the spare record is empty";
  }
}

TEST_F(ReaderBody, SubstratePadAndWireGoToTheBondOfTheirName) {
  const Package package = ReadBody(
      "CBP A 0 0\nSBP A 1 2 3 4 5 6 Oblong 8 T9\nWB A 11 12 13 14 15 16 17\n"
      "SD_CBP S 0 0\nSBP S 21 22\nWB S 31 32\n");
  EXPECT_EQ(PadOnSubstrate(package.Bonds[0]), "1 2 0 4 5 6 'Oblong' 'T9'");
  EXPECT_EQ(Wire(package.Bonds[0]), "11 12 16 14 15 17");
  EXPECT_EQ(PadOnSubstrate(package.SDBonds[0]), "21 22 0 0 0 0 '' ''");
  EXPECT_EQ(Wire(package.SDBonds[0]), "31 32 0 0 0 0");
  ASSERT_EQ(package.WireNames.Count(), 2U);
  EXPECT_EQ(Fields(package.WireNames[0].Name, package.WireNames[0].Name2, package.WireNames[1].Name),
            "'A' '' 'S'");
}

TEST_F(ReaderBody, LinesThatNameALaterRecordAreIgnored) {
  const Package package = ReadBody(
      "SBP A 1 2\nWB A 3 4\nSRSEG G B 1 2\nCBP A 5 6\nSRING G ARC\nSBP a 7 8\nWB B 9 9\nSRSEG g B 1 2\nSRSEG "
      "A B 1 2\n");
  EXPECT_EQ(Fields(package.Bonds[0].DieX, package.Bonds[0].SubX, package.Bonds[0].WireStartX), "5 0 0");
  EXPECT_TRUE(package.WireNames.Empty());
  EXPECT_TRUE(package.SRings[0].Segs.Empty());
}

TEST_F(ReaderBody, TheFirstOfEqualNamesTakesPadWireAndSegments) {
  const Package package = ReadBody(
      "SD_CBP A 1 0\nSBP A 10 0\nCBP A 2 0\nCBP A 3 0\nSD_CBP A 4 0\nSBP A 20 0\nWB A 30 0\nWB A 40 0\n"
      "SRING G ARC 1\nSRING G ARC 2\nSRSEG G T 1 2\nSRSEG G L 3 4\n");
  EXPECT_EQ(package.SDBonds[0].SubX, 10.0F) << "while no base-die bond has the name";
  EXPECT_EQ(package.Bonds[0].SubX, 20.0F) << "the base die goes first from then on";
  EXPECT_EQ(package.Bonds[0].WireStartX, 40.0F) << "the later line overwrites";
  EXPECT_EQ(package.Bonds[1].SubX, 0.0F);
  EXPECT_EQ(package.SDBonds[1].WireStartX, 0.0F);
  EXPECT_EQ(package.WireNames.Count(), 2U) << "each wire line makes an entry";
  ASSERT_EQ(package.SRings[0].Segs.Count(), 2U);
  const auto& last = package.SRings[0].Segs[1];
  EXPECT_EQ(Fields(last.Name, last.A, last.B), "'L' 3 4");
  EXPECT_TRUE(package.SRings[1].Segs.Empty());
}

TEST_F(ReaderBody, AStitchTakesItsPadSizesFromTheLastBondsOfItsNames) {
  const Package package = ReadBody(
      "SD_CBP S 0 0 0 1\nSD_CBP S 0 0 0 2\nCBP S 0 0 0 0 3\nCBP B 0 0 0 0 4\nCBP B 0 0 0 0 5\n"
      "STCH S 1 2 B 3 4 5 6\nSTCH B 0 0 X 0 0 0 0\nCBP X 0 0 0 0 7\n");
  ASSERT_EQ(package.Stitches.Count(), 2U);
  const StitchRec& stitch = package.Stitches[0];
  EXPECT_EQ(Fields(stitch.Name, stitch.X1, stitch.Y1, stitch.Z1, stitch.X2, stitch.Y2, stitch.Z2),
            "'S:B' 1 2 5 3 4 6");
  EXPECT_EQ(stitch.PadSize1, 2.0F) << "the stacked die's last one, though the base die's came later";
  EXPECT_EQ(stitch.PadSize2, 5.0F);
  EXPECT_EQ(package.Stitches[1].PadSize2, 0.0F) << "the pad came too late";
  EXPECT_EQ(Fields(package.WireNames[0].Name, package.WireNames[0].Name2), "'S' 'B'");
}

}  // namespace
}  // namespace model
