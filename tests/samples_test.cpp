#include <algorithm>

#include "tests/model/package_text.h"
#include "tests/samples.h"

namespace model {
namespace {

std::size_t PadsOnSubstrate(const Table<BondRec>& bonds) {
  return static_cast<std::size_t>(
      std::count_if(bonds.begin(), bonds.end(), [](const BondRec& bond) { return !bond.SubShape.empty(); }));
}

TEST(Samples, HaveTheirRecords) {
  // Scale, bonds, stacked bonds, substrate pads, wires with stitches, stitches, rings, segmented rings, their
  // segments and bands are those of the table in samples/README.md; signal, power and ground nets are the
  // lines of the side files whose names the wire list has.
  const std::pair<const char*, const char*> samples[] = {
      {"AAAc", "1 78 24 88 96 8 2 2 20 6 72 14 10"},
      {"caravel-qfn64", "1 63 0 63 63 0 0 0 0 7 45 9 9"},
      {"bga332", "1 328 0 328 328 0 2 2 17 18 140 94 94"},
      {"stacked-ram", "100 63 40 91 103 12 1 1 6 2 79 11 13"},
      {"flipchip-bigblade", "100 2250 0 0 0 0 0 0 0 0 0 0 0"},
      {"lqfp100", "1 112 0 112 112 0 0 0 0 6 84 8 20"},
      {"cob32", "1000 32 0 31 32 0 0 0 0 1 28 2 2"},
      {"stagger40", "1 40 0 40 40 0 0 0 0 1 36 2 2"}};
  for (const auto& [name, counts] : samples) {
    PackageScalars before;
    before.PackagePath = SamplePath(name);
    const Package package = reader::ReadPackage(before).value();
    std::size_t pieces = 0;
    for (const SRingRec& ring : package.SRings) pieces += ring.Segs.Count();
    EXPECT_TRUE(package.HaveVuFile);
    const auto nets = [&](const char* type) {
      return std::count_if(package.WireNames.begin(), package.WireNames.end(),
                           [&](const WireNameRec& entry) { return entry.NetType == type; });
    };
    EXPECT_EQ(
        Fields(package.UnitScale, package.Bonds.Count(), package.SDBonds.Count(),
               PadsOnSubstrate(package.Bonds) + PadsOnSubstrate(package.SDBonds), package.WireNames.Count(),
               package.Stitches.Count(), package.Rings.Count(), package.SRings.Count(), pieces,
               package.Daps.Count(), nets("SIGNAL"), nets("POWER"), nets("GROUND")),
        counts)
        << name;
  }
}

}  // namespace
}  // namespace model
