#include <cmath>
#include <utility>

#include "model/arithmetic.h"
#include "render/scene.h"

namespace render {

using model::Single;

void Scene::DrawAttach() {
  pen_.Begin(model::Part::DieAttach, {});
  const model::Table<model::DapRec>& daps = in_.Package.Daps;
  for (std::size_t i = 0; i < daps.Count(); ++i)
    model::AtRecord(in_.Package, {model::RecordTable::Daps, i}, [&] { DrawBand(daps[i]); });
}

/// One band from (D1, D2) to (D3, D4), longer by half its width at both ends, top face up. The ends of a
/// straight band may be given in either order.
void Scene::DrawBand(model::DapRec dap) {
  const double t = double(dap.D5) / 2.0;
  const auto at = [](double x, double y) { return PlanPoint{Single(x), Single(y)}; };
  if (dap.D2 == dap.D4) {
    if (dap.D1 > dap.D3) std::swap(dap.D1, dap.D3);
    const double left = double(dap.D1) - t;
    const double right = double(dap.D3) + t;
    const double y = double(dap.D2);
    DrawPlate(at(left, y - t), at(right, y - t), at(right, y + t), at(left, y + t));
  } else if (dap.D1 == dap.D3) {
    // The larger y comes first, as it does in rings.
    if (dap.D2 < dap.D4) std::swap(dap.D2, dap.D4);
    const double first = double(dap.D2) + t;
    const double last = double(dap.D4) - t;
    const double x = double(dap.D1);
    DrawPlate(at(x - t, first), at(x - t, last), at(x + t, last), at(x + t, first));
  } else {
    const double dx = double(dap.D3) - double(dap.D1);
    const double dy = double(dap.D4) - double(dap.D2);
    const double length = std::sqrt(dx * dx + dy * dy);
    const double alongX = dx / length * t;
    const double alongY = dy / length * t;
    const auto corner = [&](double x, double y, double along, double across) {
      return at(x + along * alongX - across * alongY, y + along * alongY + across * alongX);
    };
    const double x1 = double(dap.D1);
    const double y1 = double(dap.D2);
    const double x2 = double(dap.D3);
    const double y2 = double(dap.D4);
    DrawPlate(corner(x1, y1, -1.0, -1.0), corner(x2, y2, 1.0, -1.0), corner(x2, y2, 1.0, 1.0),
              corner(x1, y1, -1.0, 1.0));
  }
}

}  // namespace render
