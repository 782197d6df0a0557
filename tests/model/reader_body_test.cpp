#include "model/package.h"
#include "tests/model/package_text.h"

namespace model {
namespace {

using ReaderBody = PackageText;

TEST_F(ReaderBody, ADiePadFillsABond) {
  const Package package = Read("COMPZ 3\ncbp A 1 -2 17 4 2 9 L ROUND\n");
  ASSERT_EQ(package.Bonds.UpperBound(), 1U);
  EXPECT_TRUE(package.SDBonds.Empty());
  const BondRec& bond = package.Bonds[0];
  EXPECT_EQ(bond.Name, "A");
  EXPECT_EQ(bond.DieX, 1.0F);
  EXPECT_EQ(bond.DieY, -2.0F);
  EXPECT_EQ(bond.DieZ, 3.0F);
  EXPECT_EQ(bond.DieSide, "L");
  EXPECT_EQ(bond.DieShape, "ROUND");
  EXPECT_EQ(bond.SubX, 0.0F);
  EXPECT_EQ(bond.Tier, "");
  EXPECT_EQ(package.Bonds[1].Name, "") << "the spare record is empty";
  EXPECT_EQ(package.Bonds[1].DieX, 0.0F);
}

// Sizes 4 and 2 stand in fields 5 and 6. The base die exchanges them by the exact side letter, the stacked
// die always; both take the base die's height.
TEST_F(ReaderBody, SizesChangePlacesBySideOnTheBaseDieOnly) {
  const struct {
    const char* side;
    float sizeX, sizeY;
  } cases[] = {{"L", 4, 2}, {"R", 4, 2}, {"T", 2, 4},  {"B", 2, 4},
               {"t", 4, 2}, {"b", 4, 2}, {"TB", 4, 2}, {"", 4, 2}};
  for (const auto& [side, sizeX, sizeY] : cases) {
    const std::string fields = " A 0 0 0 4 2 0 " + std::string(side) + "\n";
    const Package package = Read("SD_COMPZ 9\nCOMPZ 3\nCBP" + fields + "SD_CBP" + fields);
    EXPECT_EQ(package.Bonds[0].DieSizeX, sizeX) << side;
    EXPECT_EQ(package.Bonds[0].DieSizeY, sizeY) << side;
    EXPECT_EQ(package.SDBonds[0].DieSizeX, 2.0F) << side;
    EXPECT_EQ(package.SDBonds[0].DieSizeY, 4.0F) << side;
    EXPECT_EQ(package.SDBonds[0].DieZ, 3.0F) << side;
  }
}

TEST_F(ReaderBody, SubstratePadAndWireGoToTheBondOfTheirName) {
  const Package package = ReadBody(
      "CBP A 0 0\nSBP A 1 2 3 4 5 6 Oblong 8 T9\nWB A 11 12 13 14 15 16 17\n"
      "SD_CBP S 0 0\nSBP S 21 22\nWB S 31 32\n");
  const BondRec& bond = package.Bonds[0];
  EXPECT_EQ(bond.SubX, 1.0F);
  EXPECT_EQ(bond.SubY, 2.0F);
  EXPECT_EQ(bond.SubZ, 0.0F);
  EXPECT_EQ(bond.SubSizeX, 4.0F);
  EXPECT_EQ(bond.SubSizeY, 5.0F);
  EXPECT_EQ(bond.SubAngle, 6.0F);
  EXPECT_EQ(bond.SubShape, "Oblong");
  EXPECT_EQ(bond.Tier, "T9");
  EXPECT_EQ(bond.WireStartX, 11.0F);
  EXPECT_EQ(bond.WireStartY, 12.0F);
  EXPECT_EQ(bond.WireStartZ, 16.0F);
  EXPECT_EQ(bond.WireEndX, 14.0F);
  EXPECT_EQ(bond.WireEndY, 15.0F);
  EXPECT_EQ(bond.WireEndZ, 17.0F);
  EXPECT_EQ(package.SDBonds[0].SubY, 22.0F);
  EXPECT_EQ(package.SDBonds[0].WireStartX, 31.0F);
  ASSERT_EQ(package.WireNames.Count(), 2U);
  EXPECT_EQ(package.WireNames[0].Name, "A");
  EXPECT_EQ(package.WireNames[0].Name2, "");
  EXPECT_EQ(package.WireNames[1].Name, "S");
}

TEST_F(ReaderBody, LinesThatNameNothingYetAreIgnored) {
  const Package package = ReadBody(
      "SBP A 1 2\nWB A 3 4\nSRSEG G B 1 2\nCBP A 5 6\nSRING G ARC\nSBP a 7 8\nWB B 9 9\nSRSEG g B 1 2\nSRSEG "
      "A B 1 2\n");
  EXPECT_EQ(package.Bonds[0].DieX, 5.0F);
  EXPECT_EQ(package.Bonds[0].SubX, 0.0F);
  EXPECT_EQ(package.Bonds[0].WireStartX, 0.0F);
  EXPECT_TRUE(package.WireNames.Empty());
  EXPECT_TRUE(package.SRings[0].Segs.Empty());
}

TEST_F(ReaderBody, OfEqualNamesTheFirstTakesPadWireAndSegments) {
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
  EXPECT_EQ(package.SRings[0].Segs[1].Name, "L");
  EXPECT_EQ(package.SRings[0].Segs[1].A, 3.0F);
  EXPECT_EQ(package.SRings[0].Segs[1].B, 4.0F);
  EXPECT_TRUE(package.SRings[1].Segs.Empty());
}

TEST_F(ReaderBody, AStitchTakesItsPadSizesFromTheLastBondsOfItsNames) {
  const Package package = ReadBody(
      "SD_CBP S 0 0 0 1\nSD_CBP S 0 0 0 2\nCBP S 0 0 0 0 3\nCBP B 0 0 0 0 4\nCBP B 0 0 0 0 5\n"
      "STCH S 1 2 B 3 4 5 6\nSTCH B 0 0 X 0 0 0 0\nCBP X 0 0 0 0 7\n");
  ASSERT_EQ(package.Stitches.Count(), 2U);
  const StitchRec& stitch = package.Stitches[0];
  EXPECT_EQ(stitch.Name, "S:B");
  EXPECT_EQ(stitch.X1, 1.0F);
  EXPECT_EQ(stitch.Y1, 2.0F);
  EXPECT_EQ(stitch.X2, 3.0F);
  EXPECT_EQ(stitch.Y2, 4.0F);
  EXPECT_EQ(stitch.Z1, 5.0F);
  EXPECT_EQ(stitch.Z2, 6.0F);
  EXPECT_EQ(stitch.PadSize1, 2.0F) << "the stacked die's last one, though the base die's came later";
  EXPECT_EQ(stitch.PadSize2, 5.0F);
  EXPECT_EQ(package.Stitches[1].PadSize2, 0.0F) << "the pad came too late";
  EXPECT_EQ(package.WireNames[0].Name, "S");
  EXPECT_EQ(package.WireNames[0].Name2, "B");
}

TEST_F(ReaderBody, RingsAndAttachBandsTakeTheirFields) {
  const Package package =
      ReadBody("RING R Arc 1 2 3 4 5 6\nSRING G xy 11 12 13 14 15 16\nDAP D 1 2 3 4 5 6\n");
  const RingRec& ring = package.Rings[0];
  EXPECT_EQ(ring.Kind, "Arc");
  const SRingRec& pieces = package.SRings[0];
  EXPECT_EQ(pieces.Name, "G");
  EXPECT_EQ(pieces.Kind, "xy");
  const float whole[] = {ring.X1, ring.Y1, ring.X2, ring.Y2, ring.Width, ring.Param};
  const float inPieces[] = {pieces.X1, pieces.Y1, pieces.X2, pieces.Y2, pieces.Width, pieces.Param};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(whole[i], float(i + 1));
    EXPECT_EQ(inPieces[i], float(i + 11));
  }
  const DapRec& band = package.Daps[0];
  EXPECT_EQ(band.Name, "D");
  const float values[] = {band.D1, band.D2, band.D3, band.D4, band.D5};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(values[i], float(i + 1));
}

TEST_F(ReaderBody, FindsNamesWithoutScanningTheTables) {
  constexpr int kBonds = 32000;
  std::string pads;
  std::string rest;
  std::string types;
  for (int i = 0; i < kBonds; ++i) {
    const std::string there = "N" + std::to_string(i);
    const std::string back = "N" + std::to_string(kBonds - 1 - i);
    pads += "CBP " + there + " " + std::to_string(i) + "\n";
    rest += "SBP " + back + " 1 2 0 0 0 0 R 0 2\nWB " + back + " 3\n";
    types += back + " POWER\n";
  }
  const Package package = Read("COMPZ 1\n" + pads + rest, types);
  ASSERT_EQ(package.WireNames.Count(), std::size_t{kBonds});
  EXPECT_EQ(package.WireNames[0].Name, "N31999");
  for (const WireNameRec& entry : package.WireNames) {
    ASSERT_EQ(entry.NetType, "POWER");
    ASSERT_EQ(entry.Tier, "2");
  }
  EXPECT_EQ(package.Bonds[31999].DieX, 31999.0F);
  // Three look-ups for each bond, each with at most two comparisons; a scan would take 1.5e9.
  EXPECT_LE(effort.nameComparisons, std::size_t{6 * kBonds});
}

}  // namespace
}  // namespace model
