#include <gtest/gtest.h>

#include "tests/model/package_text.h"

namespace model {
namespace {

/// The fenced block of a language in the description of the file format.
std::string Block(const std::string& language) {
  const std::string text = GetFile(YAX_FILE_FORMAT);
  const std::string opening = "```" + language + "\n";
  const std::size_t start = text.find(opening);
  if (start == std::string::npos) return {};
  const std::size_t first = start + opening.size();
  return text.substr(first, text.find("```", first) - first);
}

using FileFormatDocument = PackageText;

TEST_F(FileFormatDocument, ShowsAPackageThatIsWhatItSays) {
  const Package package = Read(Block("yax"), Block("vu"));
  EXPECT_EQ(package.Technology, "WIRE_BOND");
  EXPECT_EQ(package.CompW, 4.0F);
  EXPECT_EQ(package.SDCompW, 1.4F);
  EXPECT_EQ(package.Bonds.Count(), 4U);
  EXPECT_EQ(package.SDBonds.Count(), 2U);
  EXPECT_EQ(package.Stitches.Count(), 1U);
  EXPECT_EQ(package.Rings.Count(), 1U);
  ASSERT_EQ(package.SRings.Count(), 1U);
  EXPECT_EQ(package.SRings[0].Segs.Count(), 2U);
  EXPECT_EQ(package.Daps.Count(), 1U);
  ASSERT_EQ(package.WireNames.Count(), 6U) << "five wires and a stitch";
  for (const WireNameRec& entry : package.WireNames) EXPECT_NE(entry.NetType, "") << entry.Name;
  // The pad is 0.08 wide along its edge, which is x for the one at the top.
  EXPECT_EQ(package.Bonds[2].DieSizeX, 0.08F);
  EXPECT_EQ(package.Bonds[0].DieSizeY, 0.08F);
  // Every wire starts at its pad, on top of its own die.
  for (const BondRec& bond : package.Bonds) {
    EXPECT_EQ(bond.WireStartX, bond.DieX) << bond.Name;
    EXPECT_EQ(bond.WireStartY, bond.DieY) << bond.Name;
    EXPECT_EQ(bond.WireStartZ, package.CompZ) << bond.Name;
  }
}

}  // namespace
}  // namespace model
