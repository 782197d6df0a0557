#include "analysis/wire_loops.h"

#include <utility>

#include "analysis/fault_place.h"
#include "model/faults.h"
#include "model/pen.h"
#include "render/scene.h"

namespace analysis {

namespace {

/// Keeps the wires and passes over everything else.
class WirePen final : public model::Pen {
 public:
  void Begin(model::Part part, std::string_view name) override {
    part_ = part;
    name_ = name;
  }
  void Quad(const model::Face&) override {}
  void Disc(const model::DiscRim&) override {}
  void Strip(const model::WireStrip& strip, const model::Colour&) override {
    DrawnWire wire{.Part = part_, .Name = std::string(name_)};
    for (std::size_t k = 0; k < strip.size(); ++k) wire.Path[k] = {strip[k].X, -strip[k].Z, strip[k].Y};
    Wires.push_back(std::move(wire));
  }

  std::vector<DrawnWire> Wires;

 private:
  model::Part part_{};
  std::string_view name_;
};

/// A colon may be part of a pad's name, so a stitch's name alone does not tell its pads. The wire list does:
/// it has the stitches in their order, though other wires among them.
class PadsInOrder {
 public:
  explicit PadsInOrder(const model::Package& package) : next_(package.WireNames.begin()) {}

  std::array<std::string, 2> Of(const DrawnWire& wire) {
    if (wire.Part != model::Part::Stitch) return {wire.Name, wire.Name};
    while (next_->Name + ":" + next_->Name2 != wire.Name) ++next_;
    const model::WireNameRec& stitch = *next_++;
    return {stitch.Name, stitch.Name2};
  }

 private:
  decltype(std::declval<const model::Package&>().WireNames.begin()) next_;
};

}  // namespace

std::vector<DrawnWire> DrawnWires(model::Package& package, const model::WireBondSettings& settings,
                                  const render::WireShapes& shapes, const render::WireSelection& selection) {
  const render::Appearance appearance;
  WirePen pen;
  try {
    render::Scene({package, settings, appearance, selection, &shapes}, pen).DrawWires();
  } catch (const model::Fault& fault) {
    throw NotDrawn(package.PackagePath, fault);
  }
  return std::move(pen.Wires);
}

std::vector<WireLoop> WireLoopsOf(model::Package& package, const model::WireBondSettings& settings,
                                  const render::WireShapes& shapes) {
  if (package.Technology != "WIRE_BOND") return {};
  const double scale = package.UnitScale;
  PadsInOrder pads(package);
  std::vector<WireLoop> loops;
  for (DrawnWire& wire : DrawnWires(package, settings, shapes, {})) {
    WireLoop loop{.Name = {}, .Pads = pads.Of(wire)};
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
