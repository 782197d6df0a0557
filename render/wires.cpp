#include "model/for_each_wire.h"
#include "render/scene.h"

namespace render {

void Scene::DrawWires() {
  model::ForEachWire({in_.Package, in_.Settings, in_.Selection, in_.Shapes}, [this](const model::Wire& wire) {
    for (std::size_t k = 0; k < wire.Path.size(); ++k)
      WirePoints_[k] = {wire.Path[k].X, wire.Path[k].Z, -wire.Path[k].Y};
    const bool stitch = wire.Place.Table == model::RecordTable::Stitches;
    pen_.Begin(stitch ? model::Part::Stitch : model::Part::Wire, wire.Place);
    RenderWire();
  });
}

void Scene::RenderWire() {
  constexpr model::Colour kYellow{1.0F, 1.0F, 0.0F};
  constexpr model::Colour kBlack{0.0F, 0.0F, 0.0F};
  pen_.Strip(WirePoints_, in_.Appearance.BlackBackground ? kYellow : kBlack);
}

}  // namespace render
