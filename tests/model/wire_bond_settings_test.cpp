#include "model/wire_bond_settings.h"

#include <gtest/gtest.h>

#include "model/title.h"
#include "model/version.h"

namespace model {
namespace {

TEST(WireBondSettings, UnsetOnesBecomeTheDiesHeightsInFileUnits) {
  Package package;
  package.UnitScale = 100.0F;
  package.CompZ = 0.125F;
  package.SDCompZ = 0.0625F;
  WireBondSettings settings;
  SetUnsetDefaults(settings, package);
  EXPECT_EQ(settings.Material, "Au");
  EXPECT_EQ(settings.WireDiameter, 1.0F);
  EXPECT_EQ(settings.Frequency, 0.0F);
  EXPECT_EQ(settings.BaseLoopHeight, 12.5F);
  EXPECT_EQ(settings.BaseExtension, 12.5F);
  EXPECT_EQ(settings.StackLoopHeight, 6.25F);
  EXPECT_EQ(settings.StackExtension, 6.25F);
  EXPECT_EQ(settings.StitchExtension, 6.25F);
}

TEST(WireBondSettings, ThoseThatAreSetStay) {
  Package package;
  package.CompZ = package.SDCompZ = 9.0F;
  WireBondSettings settings{"Cu", 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, kEdgeOfBaseDie, 8.0F};
  SetUnsetDefaults(settings, package);
  EXPECT_EQ(settings.Material, "Cu");
  EXPECT_EQ(settings.WireDiameter, 2.0F);
  EXPECT_EQ(settings.BaseLoopHeight, 4.0F);
  EXPECT_EQ(settings.StackLoopHeight, 5.0F);
  EXPECT_EQ(settings.BaseExtension, 6.0F);
  EXPECT_EQ(settings.StackExtension, -1.0F);
  EXPECT_EQ(settings.StitchExtension, 8.0F);
}

TEST(Title, HasTheMinorVersionTwiceAndTheFilesName) {
  const std::string minor = std::to_string(kVersionMinor);
  EXPECT_EQ(WindowTitle("/some/where/board.yax"), "3D YAX Viewer - " + std::to_string(kVersionMajor) + "." +
                                                      minor + minor + "." + std::to_string(kVersionRevision) +
                                                      " - board.yax");
}

}  // namespace
}  // namespace model
