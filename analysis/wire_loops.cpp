#include "analysis/wire_loops.h"

namespace analysis {

namespace {

std::array<std::string, 2> PadsOf(const model::Package& package, const model::Wire& wire) {
  if (wire.Place.Table != model::RecordTable::Stitches) return {wire.Name, wire.Name};
  const model::StitchRec& stitch = package.Stitches[wire.Place.Number];
  return {stitch.Pad1, stitch.Pad2};
}

}  // namespace

std::vector<WireLoop> WireLoopsOf(const model::WireInputs& inputs) {
  if (!model::IsWireBonded(inputs.Package)) return {};
  const double scale = double(inputs.Package.UnitScale);
  std::vector<WireLoop> loops;
  model::ForEachWire(inputs, [&](const model::Wire& wire) {
    WireLoop& loop = loops.emplace_back();
    loop.Place = wire.Place;
    loop.Name = wire.Name;
    loop.Pads = PadsOf(inputs.Package, wire);
    for (std::size_t k = 0; k < wire.Path.size(); ++k) {
      const model::PackagePoint& point = wire.Path[k];
      loop.Points[k] = scale * glm::dvec3(double(point.X), double(point.Y), double(point.Z));
    }
  });
  return loops;
}

}  // namespace analysis
