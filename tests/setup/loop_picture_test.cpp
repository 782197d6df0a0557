#include "setup/loop_picture.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

namespace setup {
namespace {

/// A die of 8 x 8 x 1 with a stacked die of 4 x 4 x 1, wires along x to the right, and a stitch between them.
model::Package StackedPackage() {
  model::Package package;
  package.CompW = package.CompL = 8.0F;
  package.CompZ = 1.0F;
  package.SDCompW = package.SDCompL = 4.0F;
  package.SDCompZ = 1.0F;
  package.UnitScale = 10.0F;
  model::BondRec bond;
  bond.DieSide = "R";
  bond.DieSizeX = bond.SubSizeX = 0.5F;
  bond.WireStartX = 3.5F;
  bond.WireStartZ = 1.0F;
  bond.WireEndX = bond.SubX = 7.0F;
  package.Bonds.Spare() = bond;
  package.Bonds.Grow();
  bond.WireStartX = 1.5F;
  bond.WireStartZ = 2.0F;
  bond.WireEndX = bond.SubX = 9.0F;
  package.SDBonds.Spare() = bond;
  package.SDBonds.Grow();
  model::StitchRec& stitch = package.Stitches.Spare();
  stitch.X1 = 1.0F;
  stitch.Z1 = 2.0F;
  stitch.X2 = 3.0F;
  stitch.Z2 = 1.0F;
  package.Stitches.Grow();
  return package;
}

const PictureShape* Find(const LoopPicture& picture, PicturePart part) {
  for (const PictureShape& shape : picture.Shapes)
    if (shape.Part == part) return &shape;
  return nullptr;
}

bool Moved(const LoopPicture& before, const LoopPicture& after, PicturePart part) {
  const PictureShape* a = Find(before, part);
  const PictureShape* b = Find(after, part);
  for (std::size_t i = 0; i < a->Points.size(); ++i)
    if (std::fabs(a->Points[i].X - b->Points[i].X) > 0.5F ||
        std::fabs(a->Points[i].Y - b->Points[i].Y) > 0.5F)
      return true;
  return false;
}

bool HasLabel(const LoopPicture& picture, const std::string& text) {
  for (const PictureLabel& label : picture.Labels)
    if (label.Text == text) return true;
  return false;
}

const model::WireBondSettings kTenEach{"Au", 1.0F, 1e6F, 10.0F, 10.0F, 10.0F, 10.0F, 10.0F};

TEST(LoopPicture, EachSettingMovesItsOwnWireOnly) {
  const struct {
    float model::WireBondSettings::*setting;
    bool base, stack, stitch;
  } cases[] = {{&model::WireBondSettings::BaseLoopHeight, true, false, false},
               {&model::WireBondSettings::BaseExtension, true, false, false},
               {&model::WireBondSettings::StackExtension, false, true, false},
               // Stitches take the stacked wires' height.
               {&model::WireBondSettings::StackLoopHeight, false, true, true},
               {&model::WireBondSettings::StitchExtension, false, false, true}};
  const model::Package bare = [] {
    model::Package package = StackedPackage();
    // Pads without wires: the wires are made up.
    package.Bonds = {};
    package.SDBonds = {};
    package.SDBonds.Grow();
    package.Stitches = {};
    return package;
  }();
  for (const model::Package& package : {StackedPackage(), bare}) {
    const LoopPicture before = DrawLoops(package, kTenEach, 800.0F, 400.0F);
    for (const auto& [setting, base, stack, stitch] : cases) {
      model::WireBondSettings settings = kTenEach;
      settings.*setting = 15.0F;
      const LoopPicture after = DrawLoops(package, settings, 800.0F, 400.0F);
      EXPECT_EQ(Moved(before, after, PicturePart::BaseWire), base);
      EXPECT_EQ(Moved(before, after, PicturePart::StackWire), stack);
      EXPECT_EQ(Moved(before, after, PicturePart::StitchWire), stitch);
      EXPECT_FALSE(Moved(before, after, PicturePart::Die));
    }
  }
}

TEST(LoopPicture, IsToScale) {
  const LoopPicture picture = DrawLoops(StackedPackage(), kTenEach, 800.0F, 400.0F);
  const std::vector<PicturePoint>& base = Find(picture, PicturePart::BaseWire)->Points;
  ASSERT_EQ(base.size(), 7U);
  // From 3.5 to 7.0 along, so 3.5 units; up by the loop height of 10 / 10 = 1 unit; level from 0.3 to 1.
  const float unit = (base[6].X - base[0].X) / 3.5F;
  EXPECT_GT(unit, 20.0F);
  EXPECT_NEAR(base[0].Y - base[5].Y, unit, 0.01F);
  EXPECT_NEAR(base[5].X - base[0].X, unit, 0.01F);
  EXPECT_NEAR(base[4].X - base[0].X, 0.3F * unit, 0.01F);
  EXPECT_NEAR(base[6].Y - base[0].Y, unit, 0.01F) << "the pad lies one die height lower";
  // The base wire starts 0.5 inside the die's edge, the stacked one 2.5 inside.
  const float edge = Find(picture, PicturePart::Die)->Points[2].X;
  EXPECT_NEAR(edge - base[0].X, 0.5F * unit, 0.01F);
  EXPECT_NEAR(edge - Find(picture, PicturePart::StackWire)->Points[0].X, 2.5F * unit, 0.01F);
}

TEST(LoopPicture, DimensionLinesMeasureHeightAndExtension) {
  model::WireBondSettings settings = kTenEach;
  settings.BaseExtension = 20.0F;
  const LoopPicture picture = DrawLoops(StackedPackage(), settings, 800.0F, 400.0F);
  const std::vector<PicturePoint>& base = Find(picture, PicturePart::BaseWire)->Points;
  std::vector<float> across, up;
  for (const PictureShape& shape : picture.Shapes) {
    if (shape.Part != PicturePart::Dimension) continue;
    across.push_back(shape.Points[1].X - shape.Points[0].X);
    up.push_back(shape.Points[0].Y - shape.Points[1].Y);
  }
  EXPECT_EQ(across.size(), 18U) << "three loops, two lines each with a stroke at both ends";
  // The base wire's come first: the extension, its strokes, the height.
  EXPECT_NEAR(across[0], base[5].X - base[0].X, 0.01F);
  EXPECT_NEAR(up[3], base[0].Y - base[5].Y, 0.01F);
  EXPECT_NEAR(across[0], 2.0F * up[3], 0.01F);
}

TEST(LoopPicture, EdgeOfBaseDieEndsTheLevelRunAtTheEdge) {
  model::WireBondSettings settings = kTenEach;
  settings.StackExtension = model::kEdgeOfBaseDie;
  const LoopPicture picture = DrawLoops(StackedPackage(), settings, 800.0F, 400.0F);
  EXPECT_NEAR(Find(picture, PicturePart::StackWire)->Points[5].X,
              Find(picture, PicturePart::Die)->Points[2].X, 0.01F);
}

TEST(LoopPicture, TheWireOfMiddleLengthStandsForAll) {
  model::Package package = StackedPackage();
  for (const float end : {20.0F, 5.0F}) {
    package.Bonds.Spare() = package.Bonds[0];
    package.Bonds.Spare().WireEndX = end;
    package.Bonds.Grow();
  }
  // Lengths 3.5, 16.5 and 1.5: the picture is the one of 3.5 alone.
  EXPECT_FALSE(Moved(DrawLoops(StackedPackage(), kTenEach, 800.0F, 400.0F),
                     DrawLoops(package, kTenEach, 800.0F, 400.0F), PicturePart::BaseWire));
}

TEST(LoopPicture, StackAndItsLabelNeedAStackedDie) {
  model::Package package = StackedPackage();
  const LoopPicture stacked = DrawLoops(package, kTenEach, 800.0F, 400.0F);
  package.SDBonds = {};
  const LoopPicture single = DrawLoops(package, kTenEach, 800.0F, 400.0F);
  for (const char* label : {"Die", "Base", "SBP"}) EXPECT_TRUE(HasLabel(single, label)) << label;
  EXPECT_TRUE(HasLabel(stacked, "Stack"));
  EXPECT_FALSE(HasLabel(single, "Stack"));
  EXPECT_EQ(Find(single, PicturePart::StackWire), nullptr);
  EXPECT_EQ(Find(single, PicturePart::StackedDie), nullptr);
  EXPECT_NE(Find(single, PicturePart::StitchWire), nullptr);
}

TEST(LoopPicture, OddValuesStayInsideThePictureOrAreLeftOut) {
  struct Size {
    float width, height;
  };
  std::vector<model::Package> packages(3, StackedPackage());
  packages[1] = {};
  packages[2].UnitScale = 0.0F;
  packages[2].CompZ = -FLT_MAX;
  for (const model::Package& package : packages) {
    for (const float value : {0.0F, -50.0F, 1e-30F, 1e30F, FLT_MAX, -FLT_MAX, -1.0F}) {
      for (const auto& [width, height] : {Size{800.0F, 400.0F}, Size{0.0F, 0.0F}, Size{1.0F, 3.0F}}) {
        model::WireBondSettings settings;
        for (auto setting :
             {&model::WireBondSettings::BaseLoopHeight, &model::WireBondSettings::StackLoopHeight,
              &model::WireBondSettings::BaseExtension, &model::WireBondSettings::StackExtension,
              &model::WireBondSettings::StitchExtension})
          settings.*setting = value;
        const LoopPicture picture = DrawLoops(package, settings, width, height);
        EXPECT_NE(Find(picture, PicturePart::Die), nullptr);
        for (const PictureShape& shape : picture.Shapes) {
          for (const PicturePoint& point : shape.Points) {
            // Not even the smallest picture is missed by more than its margins.
            EXPECT_TRUE(point.X >= -20.0F && point.X <= width + 40.0F) << value << " " << point.X;
            EXPECT_TRUE(point.Y >= -20.0F && point.Y <= height + 60.0F) << value << " " << point.Y;
          }
        }
      }
    }
  }
}

TEST(LoopPicture, AWireThatFaultsIsLeftOut) {
  model::Package package = StackedPackage();
  package.SDBonds[0].SubX = 1.5F;  // straight above its pad: the edge of the die is never reached
  model::WireBondSettings settings = kTenEach;
  settings.StackExtension = model::kEdgeOfBaseDie;
  const LoopPicture picture = DrawLoops(package, settings, 800.0F, 400.0F);
  EXPECT_EQ(Find(picture, PicturePart::StackWire), nullptr);
  EXPECT_NE(Find(picture, PicturePart::BaseWire), nullptr);
}

}  // namespace
}  // namespace setup
