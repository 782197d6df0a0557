#include "render/scene.h"

namespace render {

void Scene::DrawPackage() {
  const model::Package& package = in_.Package;
  AuxPoints_.clear();
  DrawDie();
  // Not "greater than": a negative width is a stacked die too.
  if (package.SDCompW != 0.0F) DrawSDDie();
  DrawDiePads();
  if (package.SDBonds.UpperBound() > 0) DrawSDDiePads();
  if (!model::IsWireBonded(package)) return;
  DrawAttach();
  DrawRings();
  DrawSRings();
  DrawBondPads();
  DrawSDBondPads();
  DrawWires();
}

void Scene::DrawPlate(const PlanPoint& corner1, const PlanPoint& corner2, const PlanPoint& corner3,
                      const PlanPoint& corner4) {
  constexpr float kTop = -0.001F;
  constexpr float kBottom = -0.002F;
  const auto at = [](const PlanPoint& corner, float height) {
    return model::PackagePoint{corner.X, corner.Y, height};
  };
  DrawQuad(at(corner1, kTop), at(corner2, kTop), at(corner3, kTop), at(corner4, kTop), "Gray");
  DrawQuad(at(corner4, kBottom), at(corner3, kBottom), at(corner2, kBottom), at(corner1, kBottom), "Gray");
}

}  // namespace render
