#include "tests/model/package_text.h"

namespace model {
namespace {

using ReaderHeader = PackageText;

std::string Scalars(const Package& p) {
  return Fields(p.CompL, p.CompW, p.CompZ, p.SDCompL, p.SDCompW, p.SDCompZ, p.SDXOffset, p.SDYOffset,
                p.SDRotation);
}

TEST_F(ReaderHeader, TakesEveryScalar) {
  const Package package = Read(
      "technology wire_Bond\nSD_Technology flip_chip\nSD_ROTATION 45\nsd_xoffset -1,5\nSD_YOFFSET 2\n"
      "COMPL 8 4\ncompw 6\nSD_COMPL 3\nSD_COMPW 2.5\nSD_COMPZ .25\nCompZ 1.5\n");
  EXPECT_EQ(Fields(package.Technology, package.SDTechnology, package.UnitScale), "'WIRE_BOND' 'FLIP_CHIP' 1");
  EXPECT_EQ(Scalars(package), "8 6 1.5 3 2.5 0.25 -1.5 2 45");
  EXPECT_EQ(package.PackagePath, before.PackagePath);
}

TEST_F(ReaderHeader, RescalesByTensUntilTheDieFits) {
  const std::pair<const char*, const char*> cases[] = {
      {"COMPL 10\nCOMPW 10\n", "1 10 10"},       // the limit itself fits
      {"COMPL 10.5\nCOMPW 1\n", "10 1.05 0.1"},  // either length
      {"COMPL 1\nCOMPW 10.5\n", "10 0.1 1.05"},  // or width
      {"COMPL 250\nCOMPW 120\n", "100 2.5 1.2"},
      {"COMPL -250\nCOMPW 1\n", "1 -250 1"}};
  for (const auto& [header, scaled] : cases) {
    const Package package = Read(std::string(header) + "COMPZ 1\n");
    EXPECT_EQ(Fields(package.UnitScale, package.CompL, package.CompW), scaled);
  }
}

TEST_F(ReaderHeader, RescalesEveryLengthButNotTheAngles) {
  const Package package = Read(
      "COMPL 250\nCOMPW 120\nSD_COMPL 50\nSD_COMPW 40\nSD_COMPZ 3\nSD_XOFFSET 7\nSD_YOFFSET -8\nSD_ROTATION "
      "90\nCOMPZ 12\nCBP A 100 -50 0 4 2 0 L ROUND\nSBP A 300 100 0 60 20 30 ROUND 0 1\n"
      "WB A 100 -50 0 300 100 18 5\nSRING G ARC 100 200 300 400 50 25\nSRSEG G B 10 20\n"
      "RING R ARC 100 200 300 400 50 25\nDAP D 100 200 300 400 50\nSTCH A 100 200 A 300 400 18 5\n");
  EXPECT_EQ(Scalars(package), "2.5 1.2 0.12 0.5 0.4 0.03 0.07 -0.08 90");
  const BondRec& bond = package.Bonds[0];
  EXPECT_EQ(Fields(bond.DieX, bond.DieY, bond.DieZ, bond.DieSizeX, bond.DieSizeY), "1 -0.5 0.12 0.04 0.02");
  EXPECT_EQ(Fields(bond.SubX, bond.SubY, bond.SubSizeX, bond.SubSizeY, bond.SubAngle), "3 1 0.6 0.2 30");
  EXPECT_EQ(
      Fields(bond.WireStartX, bond.WireStartY, bond.WireStartZ, bond.WireEndX, bond.WireEndY, bond.WireEndZ),
      "1 -0.5 0.18 3 1 0.05");
  const RingRec& ring = package.Rings[0];
  EXPECT_EQ(Fields(ring.X1, ring.Y1, ring.X2, ring.Y2, ring.Width, ring.Param), "1 2 3 4 0.5 0.25");
  const SRingRec& pieces = package.SRings[0];
  EXPECT_EQ(Fields(pieces.X1, pieces.Y1, pieces.X2, pieces.Y2, pieces.Width, pieces.Param),
            "1 2 3 4 0.5 0.25");
  EXPECT_EQ(Fields(pieces.Segs[0].A, pieces.Segs[0].B), "0.1 0.2");
  const DapRec& band = package.Daps[0];
  EXPECT_EQ(Fields(band.D1, band.D2, band.D3, band.D4, band.D5), "1 2 3 4 0.5");
  const StitchRec& stitch = package.Stitches[0];
  EXPECT_EQ(Fields(stitch.X1, stitch.Y1, stitch.Z1, stitch.X2, stitch.Y2, stitch.Z2), "1 2 0.18 3 4 0.05");
}

TEST_F(ReaderHeader, HeightOfZeroBecomesOneBeforeRescaling) {
  for (const char* text : {"COMPZ 0\n", "COMPZ\n", "COMPZ x\n"}) EXPECT_EQ(Read(text).CompZ, 1.0F) << text;
  EXPECT_EQ(Read("COMPL 20\nCOMPZ 0\n").CompZ, 0.1F);
}

TEST_F(ReaderHeader, EndsWithTheHeightLine) {
  const Package package =
      Read("CBP EARLY 1 2\nRING R S 1 2 3 4 5 6\nCOMPZ 1\nCOMPL 8\nCOMPZ 5\nCBP LATE 1 2\n");
  EXPECT_EQ(package.CompL, 0.0F);
  EXPECT_EQ(package.CompZ, 1.0F);
  EXPECT_TRUE(package.Rings.Empty());
  ASSERT_EQ(package.Bonds.Count(), 1U);
  EXPECT_EQ(package.Bonds[0].Name, "LATE");
}

TEST_F(ReaderHeader, WithoutAHeightLineThePackageIsEmptyAndTheScaleStays) {
  before.UnitScale = 100.0F;
  before.CompZ = 0.5F;
  const Package package = Read("COMPL 250\nCBP A 1 2 0 4 2 0 L ROUND\n");
  EXPECT_EQ(Fields(package.UnitScale, package.CompL, package.CompZ), "100 250 0.5");
  EXPECT_TRUE(package.Bonds.Empty());
  EXPECT_TRUE(Read("").WireNames.Empty());
}

TEST_F(ReaderHeader, ScalarsSurviveASecondLoadAndAreDividedAgain) {
  before =
      Read("TECHNOLOGY FLIP_CHIP\nSD_COMPW 40\nSD_XOFFSET 5\nSD_ROTATION 30\nCOMPL 50\nCOMPW 20\nCOMPZ 4\n");
  ASSERT_EQ(before.UnitScale, 10.0F);
  // Width 2 and the stacked die's 4 are left from the first load, at its scale.
  const Package package = Read("COMPL 200\nCOMPZ 7\n");
  EXPECT_EQ(Fields(package.Technology, package.UnitScale), "'FLIP_CHIP' 100");
  EXPECT_EQ(Scalars(package), "2 0.02 0.07 0 0.04 0 0.005 0 30");
}

}  // namespace
}  // namespace model
