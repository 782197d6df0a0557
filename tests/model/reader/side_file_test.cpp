#include <filesystem>

#include "model/package.h"
#include "tests/fault_of.h"
#include "tests/model/package_text.h"

namespace model {
namespace {

class SideFile : public PackageText {
 protected:
  static constexpr char kPackage[] = "COMPZ 1\nCBP A\nCBP B\nCBP C\nWB A\nWB B\nWB A\nSTCH C 0 0 A\n";

  /// The net types of A, B, A again and C:A.
  std::string NetTypes(std::string_view netTypes) {
    const Package package = Read(kPackage, netTypes);
    std::string types;
    for (const WireNameRec& entry : package.WireNames) types += entry.NetType + "|";
    return types;
  }
};

TEST_F(SideFile, GivesItsTypeToTheFirstEntryOfTheName) {
  const std::pair<const char*, const char*> cases[] = {
      {"A POWER\nB GROUND\nC SIGNAL\n", "POWER|GROUND||SIGNAL|"},
      {"A POWER\nA GROUND\n", "GROUND||||"},  // a later line overwrites
      {"C:A POWER\na POWER\n", "||||"},       // no entry has these names
      {"A\nB GROUND extra\n\n  \nC  \t power \t", "|||power|"},
      // Inside a line a carriage return is a byte like any other.
      {"A POWER\r\nB G\rROUND\r\n", "POWER|G\rROUND|||"}};
  for (const auto& [lines, types] : cases) EXPECT_EQ(NetTypes(lines), types) << lines;
}

TEST_F(SideFile, MayBeMissingOrAFolderButFaultsWhenItCannotBeRead) {
  EXPECT_FALSE(Read(kPackage).HaveVuFile);
  const std::string path = before.PackagePath + ".vu";
  std::filesystem::create_directory(path);
  EXPECT_FALSE(Read(kPackage).HaveVuFile);
  std::filesystem::remove(path);
  std::filesystem::create_symlink("/proc/self/mem", path);
  EXPECT_EQ(FaultOf([&] { Read(kPackage); }), "Run-time error: Input/output error (board.yax.vu)");
}

class Tiers : public PackageText {
 protected:
  /// The tiers listed for bonds of the given tiers, in order.
  std::vector<std::string> Listed(const std::vector<std::string>& tiers) {
    std::string lines;
    for (std::size_t i = 0; i < tiers.size(); ++i) {
      const std::string name = "N" + std::to_string(i);
      lines += "CBP " + name + "\nSBP " + name + " 1 2 0 3 4 5 ROUND 0 " + tiers[i] + "\nWB " + name + "\n";
    }
    const Package package = ReadBody(lines);
    for (std::size_t i = 0; i < tiers.size(); ++i)
      EXPECT_EQ(package.Bonds[i].Tier, tiers[i]) << "bonds keep theirs";
    return PackageText::Tiers(package);
  }

  using Texts = std::vector<std::string>;
};

TEST_F(Tiers, AreRenumberedWhenTheLowestIsZero) {
  EXPECT_EQ(Listed({"1", "4", "2"}), (Texts{"1", "4", "2"}));
  EXPECT_EQ(Listed({"3", "0", "2", "1"}), (Texts{"4", "1", "3", "2"}));
  EXPECT_EQ(Listed({"5", "9"}), (Texts{"5", "9"}));
  EXPECT_EQ(Listed({"0", "x", "1.5", "007"}), (Texts{"1", "1", "2.5", "8"}));
  EXPECT_EQ(Listed({"0", "-1"}), (Texts{"0", "-1"})) << "the lowest is -1";
  EXPECT_EQ(Listed({"0.0", "0"}), (Texts{"0.0", "0"})) << "0 is not below 0.0, and 0.0 is not the text 0";
  EXPECT_EQ(Listed({"0", "", "3"}), (Texts{"1", "1", "4"}));
  EXPECT_EQ(Listed({"", "0", "3"}), (Texts{"", "0", "3"}))
      << "the first of the lowest is the empty text, not 0";
}

TEST_F(Tiers, ComeFromTheFirstBondAndTheStackedDieLast) {
  // A stands on both dies, B's bond follows its stitch, X has none.
  const Package package = ReadBody(
      "CBP A\nSBP A 0 0 0 0 0 0 R 0 1\nSD_CBP S\nSBP S 0 0 0 0 0 0 R 0 3\nWB A\nSTCH S 0 0 A\nSTCH B 0 0 A\n"
      "STCH X 0 0 A\nCBP B\nSBP B 0 0 0 0 0 0 R 0 2\nCBP B\n");
  EXPECT_EQ(PackageText::Tiers(package), (Texts{"1", "3", "2", ""}));
  const Package both = ReadBody("CBP A\nSBP A 0 0 0 0 0 0 R 0 0\nWB A\nSD_CBP A\nSTCH X 0 0 A\n");
  EXPECT_EQ(PackageText::Tiers(both), (Texts{"1", "1"}))
      << "the base die's 0 is the lowest, the stacked bond's empty tier overwrites it and becomes 1, as does "
         "none";
}

}  // namespace
}  // namespace model
