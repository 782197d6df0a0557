#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "model/reader.h"

namespace model {
namespace {

struct Sample {
  const char* name;
  float unitScale;
  std::size_t bonds, stackedBonds, padsOnSubstrate, wires, stitches, rings, ringsInPieces, pieces, bands;
  std::size_t signals, powers, grounds;
};

std::ostream& operator<<(std::ostream& out, const Sample& sample) { return out << sample.name; }

// The numbers of records are those of the table in samples/README.md; the net types are the side files' lines
// whose names the wire list has.
constexpr Sample kSamples[] = {
    {"AAAc", 1, 78, 24, 88, 88, 8, 2, 2, 20, 6, 72, 14, 10},
    {"caravel-qfn64", 1, 63, 0, 63, 63, 0, 0, 0, 0, 7, 45, 9, 9},
    {"bga332", 1, 328, 0, 328, 328, 0, 2, 2, 17, 18, 140, 94, 94},
    {"stacked-ram", 100, 63, 40, 91, 91, 12, 1, 1, 6, 2, 79, 11, 13},
    {"flipchip-bigblade", 100, 2250, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {"lqfp100", 1, 112, 0, 112, 112, 0, 0, 0, 0, 6, 84, 8, 20},
};

class Samples : public testing::TestWithParam<Sample> {};

std::size_t PadsOnSubstrate(const Table<BondRec>& bonds) {
  return static_cast<std::size_t>(
      std::count_if(bonds.begin(), bonds.end(), [](const BondRec& bond) { return !bond.SubShape.empty(); }));
}

TEST_P(Samples, HaveTheirRecords) {
  const Sample& sample = GetParam();
  PackageScalars before;
  before.PackagePath = std::string(YAX_SAMPLES "/") + sample.name + ".yax";
  const Package package = ReadPackage(before).value();
  EXPECT_EQ(package.UnitScale, sample.unitScale);
  EXPECT_EQ(package.Bonds.Count(), sample.bonds);
  EXPECT_EQ(package.SDBonds.Count(), sample.stackedBonds);
  EXPECT_EQ(PadsOnSubstrate(package.Bonds) + PadsOnSubstrate(package.SDBonds), sample.padsOnSubstrate);
  EXPECT_EQ(package.WireNames.Count(), sample.wires + sample.stitches);
  EXPECT_EQ(package.Stitches.Count(), sample.stitches);
  EXPECT_EQ(package.Rings.Count(), sample.rings);
  EXPECT_EQ(package.SRings.Count(), sample.ringsInPieces);
  std::size_t pieces = 0;
  for (const SRingRec& ring : package.SRings) pieces += ring.Segs.Count();
  EXPECT_EQ(pieces, sample.pieces);
  EXPECT_EQ(package.Daps.Count(), sample.bands);

  EXPECT_TRUE(package.HaveVuFile);
  const auto ofType = [&](const char* type) {
    return static_cast<std::size_t>(
        std::count_if(package.WireNames.begin(), package.WireNames.end(),
                      [&](const WireNameRec& entry) { return entry.NetType == type; }));
  };
  EXPECT_EQ(ofType("SIGNAL"), sample.signals);
  EXPECT_EQ(ofType("POWER"), sample.powers);
  EXPECT_EQ(ofType("GROUND"), sample.grounds);
}

INSTANTIATE_TEST_SUITE_P(All, Samples, testing::ValuesIn(kSamples), [](const auto& info) {
  std::string name = info.param.name;
  std::erase(name, '-');
  return name;
});

}  // namespace
}  // namespace model
