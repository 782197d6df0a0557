#include <cmath>

#include "model/arithmetic.h"
#include "render/scene.h"

namespace render {

using model::Corner;
using model::Single;

void Scene::DrawDie() {
  pen_.Begin(model::Part::Die, {});
  const double w = double(in_.Package.CompW) / 2.0;
  const double l = double(in_.Package.CompL) / 2.0;
  const double z = double(in_.Package.CompZ);

  DrawQuad(Corner(w, l, z), Corner(-w, l, z), Corner(-w, -l, z), Corner(w, -l, z),
           in_.Appearance.BlackBackground ? "White" : "Cyan");
  if (model::IsWireBonded(in_.Package))
    DrawQuad(Corner(w, -l, 0.0), Corner(-w, -l, 0.0), Corner(-w, l, 0.0), Corner(w, l, 0.0), "DarkBlue");
  DrawQuad(Corner(w, l, 0.0), Corner(-w, l, 0.0), Corner(-w, l, z), Corner(w, l, z), "DarkCyan");
  DrawQuad(Corner(-w, -l, 0.0), Corner(w, -l, 0.0), Corner(w, -l, z), Corner(-w, -l, z), "DarkCyan");
  DrawQuad(Corner(-w, l, 0.0), Corner(-w, -l, 0.0), Corner(-w, -l, z), Corner(-w, l, z), "DarkCyan");
  DrawQuad(Corner(w, -l, 0.0), Corner(w, l, 0.0), Corner(w, l, z), Corner(w, -l, z), "DarkCyan");
}

/// Turns points about a centre by one angle.
class Scene::Turn {
 public:
  explicit Turn(float degrees) {
    const double a = double(Single(model::kSinglePi / 180.0 * double(degrees)));
    sine_ = std::sin(a);
    cosine_ = std::cos(a);
  }

  /// The point at (x, y) from the centre, turned.
  float X(float centreX, float x, float y) const {
    return Single(double(x) * cosine_ - double(y) * sine_ + double(centreX));
  }
  float Y(float centreY, float x, float y) const {
    return Single(double(x) * sine_ + double(y) * cosine_ + double(centreY));
  }

 private:
  double sine_;
  double cosine_;
};

namespace {

/// Corners 0 to 3 of a rectangle about a centre, relative to it:
///
///     3 --- 2
///     |  c  |      x to the right, y up
///     0 --- 1
struct Rectangle {
  std::array<float, 4> X;
  std::array<float, 4> Y;

  Rectangle(float centreX, float centreY, float sizeX, float sizeY) {
    const auto relative = [](float centre, double halfSize) {
      const float edge = Single(double(centre) + halfSize);
      return Single(double(edge) - double(centre));
    };
    const float x1 = relative(centreX, -double(sizeX) / 2.0);
    const float x2 = relative(centreX, double(sizeX) / 2.0);
    const float y1 = relative(centreY, -double(sizeY) / 2.0);
    const float y2 = relative(centreY, double(sizeY) / 2.0);
    X = {x1, x2, x2, x1};
    Y = {y1, y1, y2, y2};
  }
};

}  // namespace

void Scene::RotateSDCorners() {
  const model::Package& package = in_.Package;
  const Turn turn(package.SDRotation);
  const Rectangle die(package.SDXOffset, package.SDYOffset, package.SDCompW, package.SDCompL);
  for (std::size_t k = 0; k < 4; ++k) {
    SDCornerX_[k] = turn.X(package.SDXOffset, die.X[k], die.Y[k]);
    SDCornerY_[k] = turn.Y(package.SDYOffset, die.X[k], die.Y[k]);
  }
  AuxPoints_.resize(package.SDBonds.Count());
  for (std::size_t i = 0; i < package.SDBonds.Count(); ++i)
    model::AtRecord(package, {model::RecordTable::SDBonds, i}, [&] { RotateSDPad(i, turn); });
}

void Scene::RotateSDPad(std::size_t i, const Turn& turn) {
  const model::BondRec& bond = in_.Package.SDBonds[i];
  std::array<float, 10>& points = AuxPoints_[i];
  const float centreX = bond.DieX;
  const float centreY = -bond.DieY;
  const Rectangle pad(centreX, centreY, bond.DieSizeX, bond.DieSizeY);
  for (std::size_t k = 0; k < 4; ++k) {
    points[k] = turn.X(centreX, pad.X[k], pad.Y[k]);
    points[4 + k] = turn.Y(centreY, pad.X[k], pad.Y[k]);
  }
  // The fifth point, (0, 2 * DieY) from the centre, is turned too though nothing draws it: like the others it
  // faults beyond the range of a single.
  const float up = Single(double(bond.DieY) - double(centreY));
  points[8] = turn.X(centreX, 0.0F, up);
  points[9] = turn.Y(centreY, 0.0F, up);
}

void Scene::DrawSDDie() {
  RotateSDCorners();
  pen_.Begin(model::Part::StackedDie, {});
  const double bottom = double(in_.Package.CompZ);
  const double top = bottom + double(in_.Package.SDCompZ);
  const auto at = [&](std::size_t k, double z) {
    return Corner(double(SDCornerX_[k]), double(SDCornerY_[k]), z);
  };

  DrawQuad(at(2, top), at(3, top), at(0, top), at(1, top), "Gray");
  DrawQuad(at(1, top), at(0, top), at(0, bottom), at(1, bottom), "DarkCyan");
  DrawQuad(at(2, bottom), at(3, bottom), at(3, top), at(2, top), "DarkCyan");
  DrawQuad(at(3, bottom), at(0, bottom), at(0, top), at(3, top), "DarkCyan");
  DrawQuad(at(2, top), at(1, top), at(1, bottom), at(2, bottom), "DarkCyan");
}

}  // namespace render
