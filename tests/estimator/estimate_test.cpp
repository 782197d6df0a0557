#include "estimator/estimate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "tests/refusal.h"
#include "tests/temporary_folder.h"

namespace estimator {
namespace {

/// One wire, straight but for its loop's height; `die` is the base die's length and width.
std::string OneWire(const std::string& die) {
  return "TECHNOLOGY WIRE_BOND\nCOMPL " + die + "\nCOMPW " + die +
         "\nCOMPZ 1\nCBP A 1 0 0 1 1 0 R RECTANGLE\nSBP A 4 0 0 1 1 0 RECTANGLE 0 1\nWB A 1 0 0 4 0 0 0\n";
}

class EstimateTest : public testing::Test {
 protected:
  EstimateTest() {
    std::filesystem::create_directory(folder / "started");
    std::filesystem::create_directory(folder / "beside");
    PutFile(File(), "yaxfile=a.yax\nBASEEXTENSION=0\nBaseLoopHeight=0.000001\nFrequency=0\nunknown=1\n");
  }
  std::string File() const { return folder / "beside/a.zu"; }
  Estimate Made(std::optional<std::string> unit = {}) const {
    return Work({.ParameterFile = File(), .Folder = folder / "started", .Unit = std::move(unit)});
  }
  std::string Problem() const {
    return Refusal([&] { Made(); });
  }

  TemporaryFolder folder;
};

TEST_F(EstimateTest, LooksForThePackageWhereItIsStartedThenBesideTheParameterFile) {
  EXPECT_NE(Problem().find("a.yax: not found in"), std::string::npos) << Problem();
  PutFile(folder / "beside/a.yax", OneWire("40"));
  EXPECT_EQ(Made().PackageFile, folder / "beside/a.yax");
  PutFile(folder / "started/a.yax", OneWire("40"));
  EXPECT_EQ(Made().PackageFile, folder / "started/a.yax");
}

TEST_F(EstimateTest, TakesMilUnlessTheDieLooksLikeMillimetresOrAUnitIsChosen) {
  PutFile(folder / "beside/a.yax", OneWire("40"));
  const auto length = [](const Estimate& estimate) { return estimate.Costs.Rows.front().Impedance.Length; };
  // A straight wire of 3 units.
  EXPECT_NEAR(length(Made()), 3 * 25.4e-6, 1e-10);
  EXPECT_NEAR(length(Made("um")), 3e-6, 1e-10);
  PutFile(folder / "beside/a.yax", OneWire("4"));
  EXPECT_STREQ(Made().Unit.Name, "mm");
  EXPECT_NEAR(length(Made()), 3e-3, 1e-8);
  // Grover's 3.2473 nH, see the table of the guide.
  EXPECT_NEAR(Made().Costs.Rows.front().Impedance.Inductance, 3.2473e-9, 1e-13);
}

TEST_F(EstimateTest, ReportsUnusableInput) {
  PutFile(folder / "beside/a.yax", "no package\n");
  EXPECT_NE(Problem().find("a.yax: it has no COMPZ line"), std::string::npos);
  PutFile(File(), "Material=Ag\n");
  EXPECT_NE(Problem().find("a.zu:1: 'Ag' is not a wire material"), std::string::npos);
  PutFile(File(), "Material=Au\n");
  EXPECT_NE(Problem().find("a.zu: it has no YAXFile line with a name"), std::string::npos);
  PutFile(File(), "YAXFile=a.yax\nWireDiameter=0\n");
  PutFile(folder / "beside/a.yax", OneWire("40"));
  EXPECT_NE(Problem().find("a.zu: the wire diameter is not above 0"), std::string::npos) << Problem();
}

TEST_F(EstimateTest, BothExtensionsOfTheFileCount) {
  PutFile(folder / "beside/a.yax", OneWire("40"));
  PutFile(File(), "YAXFile=a.yax\nBaseLoopHeight=1\nBaseExtension=0\n");
  // Straight up by 1, then down over 3 in plan.
  EXPECT_NEAR(Made("um").Costs.Rows.front().Impedance.Length, (1 + std::sqrt(10.0)) * 1e-6, 1e-12);
}

TEST_F(EstimateTest, ACircuitLeavesOutWhatWouldMakeItImpossible) {
  // 1 - 2 * 0.8^2 < 0, so only above 0.8 is there a circuit: none couple.
  Estimate three;
  three.Costs = {.Rows = std::vector<analysis::WireCost>(3),
                 .Coupled = true,
                 .Couplings = {{0, 1, 0.8}, {1, 2, 0.8}},
                 .LeftOut = 1,
                 .LargestLeftOut = 0.05};
  three.Note.LeastCoupling = 0.1;
  EXPECT_NE(CircuitOf(three).find("Left out: 3 couplings below 0.801, the largest of 0.8."),
            std::string::npos)
      << CircuitOf(three);
}

}  // namespace
}  // namespace estimator
