#include "analysis/wire_loops.h"

#include <utility>

#include "analysis/fault_place.h"
#include "model/faults.h"
#include "model/for_each_wire.h"

namespace analysis {

namespace {

std::array<std::string, 2> PadsOf(const model::Package& package, const DrawnWire& wire) {
  if (wire.Place.Table != model::RecordTable::Stitches) return {wire.Name, wire.Name};
  const model::StitchRec& stitch = package.Stitches[wire.Place.Number];
  return {stitch.Pad1, stitch.Pad2};
}

}  // namespace

std::vector<DrawnWire> DrawnWires(const model::Package& package, const model::WireBondSettings& settings,
                                  const model::WireShapes& shapes, const model::WireSelection& selection) {
  std::vector<DrawnWire> wires;
  try {
    model::ForEachWire({package, settings, selection, &shapes}, [&wires](const model::Wire& wire) {
      wires.push_back({wire.Place, wire.Name, wire.Path});
    });
  } catch (const model::Fault& fault) {
    throw NotDrawn(package.PackagePath, fault);
  }
  return wires;
}

std::vector<WireLoop> WireLoopsOf(const model::Package& package, const model::WireBondSettings& settings,
                                  const model::WireShapes& shapes) {
  if (package.Technology != "WIRE_BOND") return {};
  const double scale = package.UnitScale;
  std::vector<WireLoop> loops;
  for (DrawnWire& wire : DrawnWires(package, settings, shapes, {})) {
    WireLoop loop{.Name = {}, .Pads = PadsOf(package, wire)};
    loop.Name = std::move(wire.Name);
    for (std::size_t k = 0; k < wire.Path.size(); ++k) {
      const model::PackagePoint& point = wire.Path[k];
      loop.Points[k] = {double(point.X) * scale, double(point.Y) * scale, double(point.Z) * scale};
    }
    loops.push_back(std::move(loop));
  }
  return loops;
}

}  // namespace analysis
