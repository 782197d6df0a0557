#include "analysis/wire_loops.h"

#include <algorithm>
#include <glm/geometric.hpp>
#include <glm/vec2.hpp>

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

double LengthOf(const WireLoop& loop) {
  double length = 0.0;
  for (std::size_t k = 1; k < loop.Points.size(); ++k)
    length += glm::distance(loop.Points[k - 1], loop.Points[k]);
  return length;
}

double PlanLengthOf(const WireLoop& loop) {
  return glm::distance(glm::dvec2(loop.Points.front()), glm::dvec2(loop.Points.back()));
}

double TopOf(const WireLoop& loop) {
  double top = loop.Points.front().z;
  for (const glm::dvec3& point : loop.Points) top = std::max(top, point.z);
  return top;
}

}  // namespace analysis
