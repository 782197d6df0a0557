#include "model/arithmetic.h"
#include "render/scene.h"

namespace render {

using model::Single;

/// The shape that one table's settings give its wires, in scene units.
struct Scene::Loop {
  float Height;
  float Extension;
};

namespace {

model::PackagePoint StartOf(const model::BondRec& bond) {
  return {bond.WireStartX, bond.WireStartY, bond.WireStartZ};
}

model::PackagePoint EndOf(const model::BondRec& bond) {
  return {bond.WireEndX, bond.WireEndY, bond.WireEndZ};
}

float InSceneUnits(float setting, const model::Package& package) {
  return Single(double(setting) / double(package.UnitScale));
}

}  // namespace

void Scene::DrawWires() {
  DrawBaseWires();
  DrawStackedWires();
  DrawStitches();
}

void Scene::DrawBaseWires() {
  const model::Table<model::BondRec>& bonds = in_.package.Bonds;
  model::CountIn16Bits(bonds.Count(), "bonds");
  const Loop loop{InSceneUnits(in_.settings.BaseLoopHeight, in_.package),
                  InSceneUnits(in_.settings.BaseExtension, in_.package)};
  for (const model::BondRec& bond : bonds) {
    if (HasWire(bond)) DrawWire(model::Part::Wire, bond.Name, StartOf(bond), EndOf(bond), loop);
  }
}

void Scene::DrawStackedWires() {
  const model::Table<model::BondRec>& bonds = in_.package.SDBonds;
  model::CountIn16Bits(bonds.Count(), "stacked die bonds");
  const bool toEdge = in_.settings.StackExtension == model::kEdgeOfBaseDie;
  Loop loop{InSceneUnits(in_.settings.StackLoopHeight, in_.package),
            // Deliberate: the distance starts at 0 and is carried from wire to wire.
            toEdge ? 0.0F : InSceneUnits(in_.settings.StackExtension, in_.package)};
  const model::DiePlan baseDie{in_.package.CompW, in_.package.CompL};
  for (const model::BondRec& bond : bonds) {
    if (!HasWire(bond) || !in_.selection.Draws(bond.Name)) continue;
    if (toEdge) {
      model::Naming([&] { return "wire " + bond.Name; },
                    [&] {
                      loop.Extension = model::EdgeDistance(bond.DieSide, StartOf(bond), bond.SubX, bond.SubY,
                                                           baseDie, loop.Extension);
                    });
    }
    DrawWire(model::Part::Wire, bond.Name, StartOf(bond), EndOf(bond), loop);
  }
}

void Scene::DrawStitches() {
  const model::Table<model::StitchRec>& stitches = in_.package.Stitches;
  model::CountIn16Bits(stitches.Count(), "stitches");
  // Deliberate: stitches have no loop height of their own, they take the stacked die's.
  const Loop loop{InSceneUnits(in_.settings.StackLoopHeight, in_.package),
                  InSceneUnits(in_.settings.StitchExtension, in_.package)};
  for (const model::StitchRec& stitch : stitches)
    DrawWire(model::Part::Stitch, stitch.Name, {stitch.X1, stitch.Y1, stitch.Z1},
             {stitch.X2, stitch.Y2, stitch.Z2}, loop);
}

Scene::Loop Scene::OwnLoop(const std::string& name, Loop loop) const {
  const auto own = in_.shapes->find(name);
  if (own == in_.shapes->end()) return loop;
  if (own->second.Height) loop.Height = InSceneUnits(*own->second.Height, in_.package);
  if (own->second.Extension) loop.Extension = InSceneUnits(*own->second.Extension, in_.package);
  return loop;
}

void Scene::DrawWire(model::Part part, const std::string& name, const model::PackagePoint& start,
                     const model::PackagePoint& end, Loop loop) {
  if (!in_.selection.Draws(name)) return;
  if (in_.shapes != nullptr) loop = OwnLoop(name, loop);
  model::Naming([&] { return "wire " + name; },
                [&] {
                  const model::WirePath path = model::SevenPoints(start, end, loop.Height, loop.Extension);
                  for (std::size_t row = 0; row < path.size(); ++row)
                    WirePoints[row] = {path[row].X, path[row].Z, -path[row].Y};
                });
  pen_.Begin(part, name);
  RenderWire();
}

void Scene::RenderWire() {
  constexpr model::Colour kYellow{1.0F, 1.0F, 0.0F};
  constexpr model::Colour kBlack{0.0F, 0.0F, 0.0F};
  pen_.Strip(WirePoints, in_.appearance.BlackBackground ? kYellow : kBlack);
}

}  // namespace render
