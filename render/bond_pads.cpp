#include <cmath>
#include <optional>

#include "model/arithmetic.h"
#include "model/side.h"
#include "model/text.h"
#include "render/scene.h"

namespace render {

using model::Single;

namespace {

constexpr float kBottom = -0.001F;
constexpr float kTop = 0.0F;

bool HasSquareEnds(const model::BondRec& bond) { return model::EqualsUpper(bond.SubShape, "RECTANGLE"); }

}  // namespace

void Scene::DrawBondPads() { DrawSubstratePads(in_.Package.Bonds, model::RecordTable::Bonds); }

void Scene::DrawSDBondPads() { DrawSubstratePads(in_.Package.SDBonds, model::RecordTable::SDBonds); }

void Scene::DrawSubstratePads(const model::Table<model::BondRec>& bonds, model::RecordTable table) {
  model::CountIn16Bits(bonds.Count(), table);
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    // A centre on the origin means that no substrate pad was given.
    if (bonds[i].SubX == 0.0F && bonds[i].SubY == 0.0F) continue;
    const model::RecordPlace place{table, i, model::BondPart::SubstratePad};
    model::AtRecord(in_.Package, place, [&] { DrawSubstratePad(bonds[i], place); });
  }
}

/// Sets the pad's corners from the side letter and the pad's angle. A bond on no edge leaves the corners as
/// they are.
void Scene::OrientPad(const model::BondRec& bond) {
  const std::optional<model::Side> side = model::SideOf(bond.DieSide);
  if (!side) return;
  const double degrees = double(bond.SubAngle) + (model::IsUpright(*side) ? 90.0 : 0.0);
  SetPadCorners(bond, Single(degrees * model::kSinglePi / 180.0));
}

/// The corners of the pad (of the part between its round ends), turned about its centre:
///
///     P2 --- P3        a: half of SubSizeY, along x without rotation
///     |   c   |        b: half of SubSizeX (a quarter with round ends), along y
///     P1 --- P4
void Scene::SetPadCorners(const model::BondRec& bond, float rotation) {
  const double a = double(Single(double(bond.SubSizeY) / 2.0));
  const double b = double(Single(double(bond.SubSizeX) / (HasSquareEnds(bond) ? 2.0 : 4.0)));
  if (b == 0.0) return;
  const double phi = double(Single(std::atan(a / b)));
  const double theta1 = double(Single(double(rotation) + phi));
  const double theta2 = double(Single(double(rotation) - phi));
  const double r = double(Single(std::sqrt(a * a + b * b)));
  const double pi = model::kSinglePi;
  const double x = double(bond.SubX);
  const double y = double(bond.SubY);
  padCorners_[0] = {Single(x - r * std::sin(theta1)), Single(y - r * std::cos(theta1))};
  padCorners_[1] = {Single(x + r * std::sin(theta2)), Single(y + r * std::cos(theta2))};
  padCorners_[2] = {Single(x - r * std::sin(pi + theta1)), Single(y - r * std::cos(pi + theta1))};
  padCorners_[3] = {Single(x - r * std::sin(2.0 * pi + theta2)), Single(y - r * std::cos(2.0 * pi + theta2))};
}

void Scene::DrawSubstratePad(const model::BondRec& bond, const model::RecordPlace& place) {
  pen_.Begin(model::Part::SubstratePad, place);
  OrientPad(bond);
  const bool round = !HasSquareEnds(bond);
  const auto at = [&](std::size_t k, float height) {
    return model::PackagePoint{padCorners_[k].X, -padCorners_[k].Y, height};
  };
  DrawQuad(at(3, kBottom), at(2, kBottom), at(1, kBottom), at(0, kBottom), "Gray");
  if (round) DrawPadEnds(bond, kBottom);
  DrawQuad(at(0, kTop), at(1, kTop), at(2, kTop), at(3, kTop),
           in_.Appearance.BlackBackground ? "White" : "Gray");
  if (round) DrawPadEnds(bond, kTop);
}

/// A disc at either end, halfway between P1 and P4 and halfway between P2 and P3.
void Scene::DrawPadEnds(const model::BondRec& bond, float height) {
  const auto disc = [&](const PlanPoint& p, const PlanPoint& q) {
    DrawCircle(Single((double(p.X) + double(q.X)) / 2.0), Single(-(double(p.Y) + double(q.Y)) / 2.0), height,
               bond.SubSizeY);
  };
  disc(padCorners_[0], padCorners_[3]);
  disc(padCorners_[1], padCorners_[2]);
}

}  // namespace render
