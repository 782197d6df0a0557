#include "yax/reports/wire_loops.h"

#include <utility>

#include "model/faults.h"
#include "model/pen.h"
#include "render/scene.h"
#include "yax/reports/fault_place.h"

namespace yax {

namespace {

/// Keeps the loops and passes over everything else.
class LoopPen final : public model::Pen {
 public:
  explicit LoopPen(const model::Package& package)
      : scale_(double(package.UnitScale)), nextStitch_(package.WireNames.begin()) {}

  void Begin(model::Part part, std::string_view name) override {
    part_ = part;
    name_ = name;
  }
  void Quad(const model::Face&) override {}
  void Disc(const model::DiscRim&) override {}

  void Strip(const model::WireStrip& points, const model::Colour&) override {
    WireLoop loop{.Name = std::string(name_), .Pads = PadsAtWork()};
    for (std::size_t k = 0; k < points.size(); ++k)
      loop.Points[k] = {double(points[k].X) * scale_, -double(points[k].Z) * scale_,
                        double(points[k].Y) * scale_};
    Loops.push_back(std::move(loop));
  }

  std::vector<WireLoop> Loops;

 private:
  /// A colon may be part of a pad's name, so a stitch's name alone does not tell its pads. The wire list
  /// does: it has the stitches in their order, though other wires among them.
  std::array<std::string, 2> PadsAtWork() {
    if (part_ != model::Part::Stitch) return {std::string(name_), std::string(name_)};
    while (nextStitch_->Name + ":" + nextStitch_->Name2 != name_) ++nextStitch_;
    const model::WireNameRec& stitch = *nextStitch_++;
    return {stitch.Name, stitch.Name2};
  }

  double scale_;
  decltype(std::declval<const model::Package&>().WireNames.begin()) nextStitch_;
  model::Part part_{};
  std::string_view name_;
};

}  // namespace

std::vector<WireLoop> WireLoopsOf(model::Package& package, const model::WireBondSettings& settings,
                                  const render::WireShapes& shapes) {
  if (package.Technology != "WIRE_BOND") return {};
  const render::Appearance appearance;
  const render::WireSelection selection;
  LoopPen pen(package);
  try {
    render::Scene({package, settings, appearance, selection, &shapes}, pen).DrawWires();
  } catch (const model::Fault& fault) {
    throw NotDrawn(package.PackagePath, fault);
  }
  return std::move(pen.Loops);
}

}  // namespace yax
