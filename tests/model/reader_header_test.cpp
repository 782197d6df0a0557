#include <sys/stat.h>

#include "model/faults.h"
#include "tests/model/package_text.h"

namespace model {
namespace {

using ReaderHeader = PackageText;

TEST_F(ReaderHeader, TakesEveryScalar) {
  const Package package = Read(
      "technology wire_Bond\nSD_Technology flip_chip\nSD_ROTATION 45\nsd_xoffset -1,5\nSD_YOFFSET 2\n"
      "COMPL 8 4\ncompw 6\nSD_COMPL 3\nSD_COMPW 2.5\nSD_COMPZ .25\nCompZ 1.5\n");
  EXPECT_EQ(package.Technology, "WIRE_BOND");
  EXPECT_EQ(package.SDTechnology, "FLIP_CHIP");
  EXPECT_EQ(package.SDRotation, 45.0F);
  EXPECT_EQ(package.SDXOffset, -1.5F);
  EXPECT_EQ(package.SDYOffset, 2.0F);
  EXPECT_EQ(package.CompL, 8.0F);
  EXPECT_EQ(package.CompW, 6.0F);
  EXPECT_EQ(package.CompZ, 1.5F);
  EXPECT_EQ(package.SDCompL, 3.0F);
  EXPECT_EQ(package.SDCompW, 2.5F);
  EXPECT_EQ(package.SDCompZ, 0.25F);
  EXPECT_EQ(package.UnitScale, 1.0F);
  EXPECT_EQ(package.PackagePath, before.PackagePath);
}

TEST_F(ReaderHeader, RescalesByTensUntilTheDieFits) {
  const struct {
    const char* header;
    float scale, length, width;
  } cases[] = {
      {"COMPL 10\nCOMPW 10\n", 1.0F, 10.0F, 10.0F},   // the limit itself fits
      {"COMPL 10.5\nCOMPW 1\n", 10.0F, 1.05F, 0.1F},  // either length
      {"COMPL 1\nCOMPW 10.5\n", 10.0F, 0.1F, 1.05F},  // or width
      {"COMPL 250\nCOMPW 120\n", 100.0F, 2.5F, 1.2F}, {"COMPL -250\nCOMPW 1\n", 1.0F, -250.0F, 1.0F},
  };
  for (const auto& [header, scale, length, width] : cases) {
    const Package package = Read(std::string(header) + "COMPZ 1\n");
    EXPECT_EQ(package.UnitScale, scale) << header;
    EXPECT_FLOAT_EQ(package.CompL, length) << header;
    EXPECT_FLOAT_EQ(package.CompW, width) << header;
  }
}

TEST_F(ReaderHeader, RescalesEveryLengthButNotTheRotation) {
  const Package package = Read(
      "COMPL 250\nCOMPW 120\nSD_COMPL 50\nSD_COMPW 40\nSD_COMPZ 3\nSD_XOFFSET 7\nSD_YOFFSET -8\nSD_ROTATION "
      "90\n"
      "COMPZ 12\nCBP A 100 -50 0 4 2 0 L ROUND\nSBP A 300 0 0 60 20 30 ROUND 0 1\nWB A 100 -50 0 300 0 18 5\n"
      "SRING G ARC 100 200 300 400 50 25\nSRSEG G B 10 20\nDAP D 100 200 300 400 50\n");
  EXPECT_FLOAT_EQ(package.CompZ, 0.12F);
  EXPECT_FLOAT_EQ(package.SDCompL, 0.5F);
  EXPECT_FLOAT_EQ(package.SDCompW, 0.4F);
  EXPECT_FLOAT_EQ(package.SDCompZ, 0.03F);
  EXPECT_FLOAT_EQ(package.SDXOffset, 0.07F);
  EXPECT_FLOAT_EQ(package.SDYOffset, -0.08F);
  EXPECT_EQ(package.SDRotation, 90.0F);
  const BondRec& bond = package.Bonds[0];
  EXPECT_EQ(bond.DieX, 1.0F);
  EXPECT_EQ(bond.DieY, -0.5F);
  EXPECT_FLOAT_EQ(bond.DieZ, 0.12F);
  EXPECT_FLOAT_EQ(bond.DieSizeX, 0.04F);
  EXPECT_EQ(bond.SubX, 3.0F);
  EXPECT_FLOAT_EQ(bond.SubSizeX, 0.6F);
  EXPECT_EQ(bond.SubAngle, 30.0F);
  EXPECT_FLOAT_EQ(bond.WireStartZ, 0.18F);
  EXPECT_EQ(package.SRings[0].Param, 0.25F);
  EXPECT_FLOAT_EQ(package.SRings[0].Segs[0].B, 0.2F);
  EXPECT_EQ(package.Daps[0].D5, 0.5F);
}

TEST_F(ReaderHeader, HeightOfZeroBecomesOneBeforeRescaling) {
  EXPECT_EQ(Read("COMPZ 0\n").CompZ, 1.0F);
  EXPECT_EQ(Read("COMPZ\n").CompZ, 1.0F);
  EXPECT_EQ(Read("COMPZ x\n").CompZ, 1.0F);
  EXPECT_FLOAT_EQ(Read("COMPL 20\nCOMPZ 0\n").CompZ, 0.1F);
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
  EXPECT_EQ(package.UnitScale, 100.0F);
  EXPECT_EQ(package.CompL, 250.0F);
  EXPECT_EQ(package.CompZ, 0.5F);
  EXPECT_TRUE(package.Bonds.Empty());
  EXPECT_TRUE(Read("").WireNames.Empty());
}

TEST_F(ReaderHeader, ScalarsSurviveASecondLoadAndAreDividedAgain) {
  before =
      Read("TECHNOLOGY FLIP_CHIP\nSD_COMPW 40\nSD_XOFFSET 5\nSD_ROTATION 30\nCOMPL 50\nCOMPW 20\nCOMPZ 4\n");
  ASSERT_EQ(before.UnitScale, 10.0F);
  // Width 2 and the stacked die's 4 are left from the first load, at its scale.
  const Package package = Read("COMPL 200\nCOMPZ 7\n");
  EXPECT_EQ(package.UnitScale, 100.0F);
  EXPECT_EQ(package.Technology, "FLIP_CHIP");
  EXPECT_EQ(package.CompL, 2.0F);
  EXPECT_FLOAT_EQ(package.CompW, 0.02F);
  EXPECT_FLOAT_EQ(package.CompZ, 0.07F);
  EXPECT_FLOAT_EQ(package.SDCompW, 0.04F);
  EXPECT_FLOAT_EQ(package.SDXOffset, 0.005F);
  EXPECT_EQ(package.SDRotation, 30.0F);
}

TEST_F(ReaderHeader, NothingToReadGivesNoPackage) {
  EXPECT_FALSE(ReadPackage(before));  // no such file
  ASSERT_EQ(mkfifo(before.PackagePath.c_str(), 0600), 0);
  EXPECT_FALSE(ReadPackage(before)) << "a pipe is no file, and must not be waited for";
  before.PackagePath = folder / "";
  EXPECT_FALSE(ReadPackage(before)) << "a folder is no file";
  before.PackagePath = "";
  EXPECT_FALSE(ReadPackage(before));
}

TEST_F(ReaderHeader, AFileThatCannotBeReadFaults) {
  // Its first page is never mapped, so reading it fails even for the superuser.
  std::filesystem::create_symlink("/proc/self/mem", before.PackagePath);
  try {
    ReadPackage(before);
    FAIL() << "no fault";
  } catch (const FileFault& fault) {
    EXPECT_STREQ(fault.what(), "Run-time error: Input/output error (board.yax)");
  }
}

}  // namespace
}  // namespace model
