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

TEST_F(FileFormatDocument, ExampleMatchesItsDescription) {
  const Package package = Read(Block("yax"), Block("vu"));
  EXPECT_EQ(Fields(package.Technology, package.CompW, package.SDCompW), "'WIRE_BOND' 4 1.4");
  // Five wires and a stitch, a whole ring, a ring in two segments, and a band.
  EXPECT_EQ(Fields(package.Bonds.Count(), package.SDBonds.Count(), package.WireNames.Count(),
                   package.Stitches.Count(), package.Rings.Count(), package.SRings.Count(),
                   package.SRings[0].Segs.Count(), package.Daps.Count()),
            "4 2 6 1 1 1 2 1");
  for (const WireNameRec& entry : package.WireNames) EXPECT_NE(entry.NetType, "") << entry.Name;
  // The pad is 0.08 wide along its edge, which is x for the one at the top.
  EXPECT_EQ(package.Bonds[2].DieSizeX, 0.08F);
  EXPECT_EQ(package.Bonds[0].DieSizeY, 0.08F);
  // Every wire starts at its pad, on top of its own die.
  for (const BondRec& bond : package.Bonds)
    EXPECT_EQ(Fields(bond.WireStartX, bond.WireStartY, bond.WireStartZ),
              Fields(bond.DieX, bond.DieY, package.CompZ))
        << bond.Name;
}

}  // namespace
}  // namespace model
