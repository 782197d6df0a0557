#include "model/arithmetic.h"
#include "model/text.h"
#include "render/scene.h"

namespace render {

using model::Corner;
using model::Single;

namespace {

/// How far pads stand above (and bumps below) their level, so that the die's top does not cover them.
constexpr double kClearance = 0.001;

// Deliberate: "RECTANGLE" in any case, but "ROUND" only as it stands; "round" draws no pad at all.
bool IsRectangle(const model::BondRec& bond) { return model::EqualsUpper(bond.DieShape, "RECTANGLE"); }
bool IsRound(const model::BondRec& bond) { return bond.DieShape == "ROUND"; }

}  // namespace

/// The quad in the middle of a round pad sets the colour; the discs over and under it take it on.
void Scene::DrawRoundPad(const model::BondRec& bond, double quadHeight, double upperDisc, double lowerDisc) {
  const double x = double(bond.DieX);
  const double y = double(bond.DieY);
  const double hx = double(bond.DieSizeX) / 4.0;
  const double hy = double(bond.DieSizeY) / 4.0;
  DrawQuad(Corner(x + hx, -(y + hy), quadHeight), Corner(x - hx, -(y + hy), quadHeight),
           Corner(x - hx, -(y - hy), quadHeight), Corner(x + hx, -(y - hy), quadHeight), "Blue");
  DrawCircle(bond.DieX, -bond.DieY, Single(upperDisc), bond.DieSizeX);
  if (in_.Package.Technology == "FLIP_CHIP")
    DrawCircle(bond.DieX, -bond.DieY, Single(lowerDisc), bond.DieSizeX);
}

void Scene::DrawDiePads() {
  for (std::size_t i = 0; i < in_.Package.Bonds.Count(); ++i)
    model::AtRecord(in_.Package, {model::RecordTable::Bonds, i}, [&] { DrawDiePad(i); });
}

void Scene::DrawDiePad(std::size_t i) {
  const model::BondRec& bond = in_.Package.Bonds[i];
  pen_.Begin(model::Part::DiePad, {model::RecordTable::Bonds, i});
  const double level = double(bond.DieZ);
  const double z = level + kClearance;
  if (IsRectangle(bond)) {
    const double x = double(bond.DieX);
    const double y = double(bond.DieY);
    const double hx = double(bond.DieSizeX) / 2.0;
    const double hy = double(bond.DieSizeY) / 2.0;
    DrawQuad(Corner(x + hx, -(y + hy), z), Corner(x - hx, -(y + hy), z), Corner(x - hx, -(y - hy), z),
             Corner(x + hx, -(y - hy), z), "Blue");
  } else if (IsRound(bond)) {
    DrawRoundPad(bond, z, z, level - kClearance);
  }
}

void Scene::DrawSDDiePads() {
  AuxPoints_.resize(in_.Package.SDBonds.Count());
  for (std::size_t i = 0; i < in_.Package.SDBonds.Count(); ++i)
    model::AtRecord(in_.Package, {model::RecordTable::SDBonds, i}, [&] { DrawSDDiePad(i); });
}

void Scene::DrawSDDiePad(std::size_t i) {
  const model::BondRec& bond = in_.Package.SDBonds[i];
  pen_.Begin(model::Part::DiePad, {model::RecordTable::SDBonds, i});
  const double level = double(bond.DieZ);
  if (IsRectangle(bond)) {
    const double z = level + kClearance + double(in_.Package.SDCompZ);
    const auto at = [&](std::size_t k) {
      return Corner(double(AuxPoints_[i][k]), double(AuxPoints_[i][4 + k]), z);
    };
    DrawQuad(at(2), at(3), at(0), at(1), "Blue");
  } else if (IsRound(bond)) {
    const double baseHeight = double(in_.Package.CompZ);
    // Deliberate: the parts of a round pad lie at three different heights.
    DrawRoundPad(bond, level + kClearance + baseHeight, level + kClearance, level - kClearance + baseHeight);
  }
}

}  // namespace render
