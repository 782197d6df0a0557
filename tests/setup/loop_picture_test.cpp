#include "setup/loop_picture.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "tests/model/package_text.h"

namespace setup {
namespace {

/// A die of 8 x 8 x 1 with a stacked die of 4 x 4 x 1, wires along x to the right, and a stitch between them;
/// ten file units make one of the scene.
model::Package StackedPackage() {
  model::Package package = model::PackageOf(
      "COMPL 8\nCOMPW 8\nSD_COMPL 4\nSD_COMPW 4\nSD_COMPZ 1\nCOMPZ 1\n"
      "CBP A 0 0 0 0.5 0 0 R\nSBP A 7 0 0 0.5\nWB A 3.5 0 0 7 0 1 0\n"
      "SD_CBP S 0 0 0 0 0.5 0 R\nSBP S 9 0 0 0.5\nWB S 1.5 0 0 9 0 2 0\nSTCH X 1 0 Y 3 0 2 1\n");
  package.UnitScale = 10.0F;
  return package;
}

LoopPicture Drawn(const model::Package& package, const model::WireBondSettings& settings) {
  return DrawLoops(package, settings, 800.0F, 400.0F);
}

const PictureShape* Find(const LoopPicture& picture, PicturePart part) {
  for (const PictureShape& shape : picture.Shapes)
    if (shape.Part == part) return &shape;
  return nullptr;
}

bool Moved(const LoopPicture& before, const LoopPicture& after, PicturePart part) {
  const auto& a = Find(before, part)->Points;
  return !std::equal(a.begin(), a.end(), Find(after, part)->Points.begin(), [](const auto& p, const auto& q) {
    return std::fabs(p.X - q.X) < 0.5F && std::fabs(p.Y - q.Y) < 0.5F;
  });
}

bool HasLabel(const LoopPicture& picture, const std::string& text) {
  return std::any_of(picture.Labels.begin(), picture.Labels.end(),
                     [&](const auto& l) { return l.Text == text; });
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
  // Pads without wires: placeholder wires are drawn.
  model::Package bare = StackedPackage();
  bare.Bonds = {};
  bare.SDBonds = {};
  bare.SDBonds.Grow();
  bare.Stitches = {};
  for (const model::Package& package : {StackedPackage(), bare}) {
    const LoopPicture before = Drawn(package, kTenEach);
    for (const auto& [setting, base, stack, stitch] : cases) {
      model::WireBondSettings settings = kTenEach;
      settings.*setting = 15.0F;
      const LoopPicture after = Drawn(package, settings);
      EXPECT_EQ(Moved(before, after, PicturePart::BaseWire), base);
      EXPECT_EQ(Moved(before, after, PicturePart::StackWire), stack);
      EXPECT_EQ(Moved(before, after, PicturePart::StitchWire), stitch);
      EXPECT_FALSE(Moved(before, after, PicturePart::Die));
    }
  }
}

TEST(LoopPicture, IsToScale) {
  const LoopPicture picture = Drawn(StackedPackage(), kTenEach);
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

TEST(LoopPicture, EdgeOfBaseDieEndsTheLevelRunAtTheEdgeOrTheWireIsLeftOut) {
  model::WireBondSettings settings = kTenEach;
  settings.StackExtension = model::kEdgeOfBaseDie;
  model::Package package = StackedPackage();
  LoopPicture picture = Drawn(package, settings);
  EXPECT_NEAR(Find(picture, PicturePart::StackWire)->Points[5].X,
              Find(picture, PicturePart::Die)->Points[2].X, 0.01F);
  // A wire straight above its pad never reaches the edge: it faults, and is left out.
  package.SDBonds[0].SubX = 1.5F;
  picture = Drawn(package, settings);
  EXPECT_EQ(Find(picture, PicturePart::StackWire), nullptr);
  EXPECT_NE(Find(picture, PicturePart::BaseWire), nullptr);
}

TEST(LoopPicture, ShowsTheWireOfMedianLength) {
  model::Package package = StackedPackage();
  for (const float end : {20.0F, 5.0F}) {
    package.Bonds.Spare() = package.Bonds[0];
    package.Bonds.Spare().WireEndX = end;
    package.Bonds.Grow();
  }
  // Lengths 3.5, 16.5 and 1.5: the picture is the one of 3.5 alone.
  EXPECT_FALSE(Moved(Drawn(StackedPackage(), kTenEach), Drawn(package, kTenEach), PicturePart::BaseWire));
}

TEST(LoopPicture, LabelsOfLoopsOfOneHeightStandApartAndInsideThePicture) {
  for (const bool stacked : {false, true}) {
    model::Package package = StackedPackage();
    if (!stacked) package.SDBonds = {};
    // A picture so wide that its height limits the scale: the highest loop reaches the top margin.
    const LoopPicture picture = DrawLoops(package, kTenEach, 3000.0F, 230.0F);
    for (const char* label : {"Die", "Base", "SBP"}) EXPECT_TRUE(HasLabel(picture, label)) << label;
    EXPECT_EQ(HasLabel(picture, "Stack"), stacked);
    for (const PicturePart part : {PicturePart::StackWire, PicturePart::StackedDie})
      EXPECT_EQ(Find(picture, part) != nullptr, stacked);
    const std::vector<PictureLabel>& labels = picture.Labels;
    for (auto label = labels.begin(); label != labels.end(); ++label) {
      // Half of the 14 pixels that a line of text takes.
      EXPECT_GE(label->Centre.Y, 7.0F) << label->Text;
      for (auto other = labels.begin(); other != label; ++other)
        EXPECT_TRUE(std::fabs(label->Centre.Y - other->Centre.Y) >= 14.0F ||
                    std::fabs(label->Centre.X - other->Centre.X) >= 40.0F)
            << label->Text << " over " << other->Text;
    }
  }
}

TEST(LoopPicture, OddValuesStayInsideThePictureOrAreLeftOut) {
  std::vector<model::Package> packages(3, StackedPackage());
  packages[1] = {};
  packages[2].UnitScale = 0.0F;
  packages[2].CompZ = -FLT_MAX;
  for (const model::Package& package : packages) {
    for (const float value : {0.0F, -50.0F, 1e-30F, 1e30F, FLT_MAX, -FLT_MAX, -1.0F}) {
      for (const auto& [width, height] : {std::pair(800.0F, 400.0F), {0.0F, 0.0F}, {1.0F, 3.0F}}) {
        const LoopPicture picture =
            DrawLoops(package, {"", 0.0F, 0.0F, value, value, value, value, value}, width, height);
        EXPECT_NE(Find(picture, PicturePart::Die), nullptr);
        for (const PictureShape& shape : picture.Shapes) {
          for (const PicturePoint& point : shape.Points) {
            // Not even the smallest picture is missed by more than its margins.
            EXPECT_TRUE(point.X >= -20.0F && point.X <= width + 40.0F) << value << " " << point.X;
            EXPECT_TRUE(point.Y >= -20.0F && point.Y <= height + 90.0F) << value << " " << point.Y;
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace setup
