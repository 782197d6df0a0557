#include "tests/render/scene_test.h"

namespace {

using render::Scene;
using Routine = void (Scene::*)();

// One record of each kind.
constexpr char kHeader[] =
    "COMPL 8\nCOMPW 6\nSD_COMPL 2\nSD_COMPW 2\nSD_COMPZ 1\nSD_ROTATION 30\nCOMPZ 1\n"
    "CBP A 1 1 0 1 1 0 L ROUND\nSD_CBP S 1 2 0 1 1 0 T RECTANGLE\nSBP A 9 1 0 2 1 0 RECTANGLE 0 1\n"
    "SBP S 9 2 0 2 1 0 OBLONG 0 1\nWB A 1 1 0 9 1 1 0\nWB S 1 2 0 9 2 2 0\nSTCH A 1 1 S 1 2 1 2\n"
    "RING R LINE -5 5 5 -5 1 0\nSRING Q LINE -6 6 6 -6 1 0\nSRSEG Q B 0 1\nDAP D 0 0 1 0 1\n";

class SceneOrderTest : public SceneTest {
 protected:
  /// All shapes of a drawing in order.
  std::string Shapes() {
    std::string text;
    std::size_t quad = 0, disc = 0, strip = 0;
    for (const char shape : pen.Order) {
      if (shape == 'Q') text += FaceText(pen.Quads[quad++]) + "\n";
      if (shape == 'D') text += "disc " + DiscText(pen.Discs[disc++]) + "\n";
      if (shape == 'S') text += "strip " + PointText(pen.Strips[strip++][0]) + "\n";
    }
    return text;
  }

  std::string OneAfterTheOther(std::initializer_list<Routine> routines) {
    std::string text;
    for (const Routine routine : routines) {
      Draw(routine);
      EXPECT_FALSE(pen.Order.empty());
      text += Shapes();
    }
    return text;
  }
};

TEST_F(SceneOrderTest, WireBondPackagesShowEverything) {
  Draw(std::string("TECHNOLOGY wire_bond\n") + kHeader);
  const std::string whole = Shapes();
  EXPECT_EQ(whole,
            OneAfterTheOther({&Scene::DrawDie, &Scene::DrawSDDie, &Scene::DrawDiePads, &Scene::DrawSDDiePads,
                              &Scene::DrawAttach, &Scene::DrawRings, &Scene::DrawSRings, &Scene::DrawBondPads,
                              &Scene::DrawSDBondPads, &Scene::DrawWires}));
}

TEST_F(SceneOrderTest, AnyOtherTechnologyShowsDiesAndTheirPadsOnly) {
  for (const char* technology : {"TECHNOLOGY FLIP_CHIP\n", "TECHNOLOGY WIRE\n", ""}) {
    Draw(technology + std::string(kHeader));
    const std::string whole = Shapes();
    EXPECT_EQ(whole, OneAfterTheOther(
                         {&Scene::DrawDie, &Scene::DrawSDDie, &Scene::DrawDiePads, &Scene::DrawSDDiePads}))
        << technology;
  }
}

/// Fills a table with copies of a record.
template <class Record>
void Fill(model::Table<Record>& table, std::size_t count, const Record& record) {
  table = {};
  table.Reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    table.Spare() = record;
    table.Grow();
  }
}

TEST_F(SceneOrderTest, CountersOf16BitsFaultAt32768Records) {
  package.Technology = "WIRE_BOND";
  model::StitchRec stitch;
  stitch.X2 = 1.0F;
  const auto text = [](const char* table) {
    return std::string("Run-time error: Overflow (32768 ") + table + ", at most 32767 can be drawn)";
  };
  const auto check = [&](auto& table, const auto& record, Routine routine, const char* name) {
    Fill(table, 32767, record);
    EXPECT_EQ(FaultOf(routine), "no fault") << name;
    Fill(table, 32768, record);
    EXPECT_EQ(FaultOf(routine), text(name));
    table = {};
  };
  check(package.Rings, model::RingRec{}, &Scene::DrawRings, "rings");
  check(package.SRings, model::SRingRec{}, &Scene::DrawSRings, "segmented rings");
  check(package.Bonds, model::BondRec{}, &Scene::DrawBondPads, "bonds");
  check(package.Bonds, model::BondRec{}, &Scene::DrawWires, "bonds");
  check(package.SDBonds, model::BondRec{}, &Scene::DrawSDBondPads, "stacked die bonds");
  check(package.SDBonds, model::BondRec{}, &Scene::DrawWires, "stacked die bonds");
  check(package.Stitches, stitch, &Scene::DrawWires, "stitches");
}

}  // namespace
