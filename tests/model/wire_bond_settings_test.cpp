#include "model/wire_bond_settings.h"

#include "model/version.h"
#include "shell/title.h"
#include "tests/model/package_text.h"

namespace model {
namespace {

std::string Text(const WireBondSettings& s) {
  return Fields(s.Material, s.WireDiameter, s.Frequency, s.BaseLoopHeight, s.StackLoopHeight, s.BaseExtension,
                s.StackExtension, s.StitchExtension);
}

TEST(WireBondSettings, UnsetOnesBecomeTheDiesHeightsInFileUnitsAndOthersStay) {
  Package package;
  package.UnitScale = 100.0F;
  package.CompZ = 0.125F;
  package.SDCompZ = 0.0625F;
  WireBondSettings settings;
  SetUnsetDefaults(settings, package);
  EXPECT_EQ(Text(settings), "'Au' 1 0 12.5 6.25 12.5 6.25 6.25");
  settings = {"Cu", 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, kEdgeOfBaseDie, 8.0F};
  SetUnsetDefaults(settings, package);
  EXPECT_EQ(Text(settings), "'Cu' 2 3 4 5 6 -1 8");
}

TEST(Title, HasTheMinorVersionTwiceAndTheFilesName) {
  const std::string minor = std::to_string(kVersionMinor);
  EXPECT_EQ(shell::WindowTitle("/some/where/board.yax"),
            "3D YAX Viewer - " + std::to_string(kVersionMajor) + "." + minor + minor + "." +
                std::to_string(kVersionRevision) + " - board.yax");
}

}  // namespace
}  // namespace model
