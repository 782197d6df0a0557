#include "setup/side_wires.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/arithmetic.h"
#include "model/wire_path.h"

namespace setup {

namespace {

using model::BondRec;
using model::Package;
using model::PackagePoint;
using model::StitchRec;

PackagePoint StartOf(const BondRec& bond) { return {bond.WireStartX, bond.WireStartY, bond.WireStartZ}; }
PackagePoint EndOf(const BondRec& bond) { return {bond.WireEndX, bond.WireEndY, bond.WireEndZ}; }
PackagePoint StartOf(const StitchRec& stitch) { return {stitch.X1, stitch.Y1, stitch.Z1}; }
PackagePoint EndOf(const StitchRec& stitch) { return {stitch.X2, stitch.Y2, stitch.Z2}; }

bool HasWire(const StitchRec&) { return true; }

/// The wire of middle length. Returns nothing when the table has none that can be drawn
template <class Record>
std::optional<Record> TypicalOf(const model::Table<Record>& records) {
  std::vector<std::pair<double, const Record*>> wires;
  for (const Record& record : records) {
    const double length = model::PlanLength(StartOf(record), EndOf(record));
    if (HasWire(record) && length > 0.0) wires.emplace_back(length, &record);
  }
  if (wires.empty()) return std::nullopt;
  const auto middle = wires.begin() + static_cast<std::ptrdiff_t>(wires.size() / 2);
  std::nth_element(wires.begin(), middle, wires.end());
  return *middle->second;
}

/// What made-up wires are measured by.
double Measure(const Package& package) {
  return package.CompZ != 0.0F ? std::fabs(double(package.CompZ)) : 1.0;
}

/// A bond on the right edge of the base die, its pads so many measures inside and outside of that edge.
BondRec MadeUpBond(const Package& package, double inside, double outside, double height) {
  const double edge = double(package.CompW) / 2.0;
  BondRec bond;
  bond.DieSide = "R";
  bond.DieSizeX = bond.SubSizeX = model::Single(0.4 * Measure(package));
  bond.WireStartX = model::Single(edge - inside * Measure(package));
  bond.WireStartZ = model::Single(height);
  bond.WireEndX = bond.SubX = model::Single(edge + outside * Measure(package));
  return bond;
}

StitchRec MadeUpStitch(const Package& package) {
  const bool stacked = !package.SDBonds.Empty();
  const double edge = double(package.CompW) / 2.0;
  StitchRec stitch;
  stitch.X1 = model::Single(edge - (stacked ? 2.5 : 3.0) * Measure(package));
  stitch.X2 = model::Single(edge - 0.5 * Measure(package));
  stitch.Z1 = model::Single(double(package.CompZ) + (stacked ? double(package.SDCompZ) : 0.0));
  stitch.Z2 = package.CompZ;
  stitch.PadSize1 = stitch.PadSize2 = model::Single(0.4 * Measure(package));
  return stitch;
}

/// From the wire's start along the wire to the base die's edge; nothing when it never gets there.
std::optional<float> ToEdge(const Package& package, const BondRec& bond) {
  try {
    return model::EdgeDistance(bond.DieSide, StartOf(bond), bond.SubX, bond.SubY,
                               {package.CompW, package.CompL}, 0.0F);
  } catch (const model::Fault&) {
    return std::nullopt;
  }
}

float InScene(float setting, const Package& package) {
  return model::Single(model::Divide(double(setting), double(package.UnitScale), "no unit scale"));
}

/// The loop seen from the side. `startOut` is where it starts, `direction` 1 outwards and -1 inwards.
std::vector<SidePoint> Profile(const PackagePoint& start, const PackagePoint& end, float loopHeight,
                               float extension, double startOut, double direction) {
  const double length = model::PlanLength(start, end);
  std::vector<SidePoint> profile;
  for (const PackagePoint& point : model::SevenPoints(start, end, loopHeight, extension)) {
    const double along = ((double(point.X) - double(start.X)) * (double(end.X) - double(start.X)) +
                          (double(point.Y) - double(start.Y)) * (double(end.Y) - double(start.Y))) /
                         length;
    profile.push_back({startOut + direction * along, double(point.Z)});
  }
  return profile;
}

SideWire SideBond(const Package& package, const BondRec& bond, float loopHeight, float extension) {
  const double startOut = -double(ToEdge(package, bond).value_or(0.0F));
  return {Profile(StartOf(bond), EndOf(bond), loopHeight, extension, startOut, 1.0),
          double(std::max(bond.DieSizeX, bond.DieSizeY)), double(std::max(bond.SubSizeX, bond.SubSizeY))};
}

/// Runs `draw`; a wire that faults is no wire.
template <class Draw>
SideWire LeavingOutFaults(Draw&& draw) {
  try {
    return draw();
  } catch (const model::Fault&) {
    return {};
  }
}

/// How far a pad at (x, y) lies inside the base die's nearest edge; negative outside of it.
double Inside(const Package& package, float x, float y) {
  return std::min(double(package.CompW) / 2.0 - std::fabs(double(x)),
                  double(package.CompL) / 2.0 - std::fabs(double(y)));
}

}  // namespace

SideWire SideBaseWire(const Package& package, const model::WireBondSettings& settings) {
  return LeavingOutFaults([&] {
    const auto typical = TypicalOf(package.Bonds);
    return SideBond(package, typical ? *typical : MadeUpBond(package, 0.5, 3.0, double(package.CompZ)),
                    InScene(settings.BaseLoopHeight, package), InScene(settings.BaseExtension, package));
  });
}

SideWire SideStackWire(const Package& package, const model::WireBondSettings& settings) {
  return LeavingOutFaults([&]() -> SideWire {
    const auto typical = TypicalOf(package.SDBonds);
    const BondRec bond =
        typical ? *typical : MadeUpBond(package, 2.5, 5.0, double(package.CompZ) + double(package.SDCompZ));
    const float loopHeight = InScene(settings.StackLoopHeight, package);
    if (settings.StackExtension != model::kEdgeOfBaseDie)
      return SideBond(package, bond, loopHeight, InScene(settings.StackExtension, package));
    const auto edge = ToEdge(package, bond);
    return edge ? SideBond(package, bond, loopHeight, *edge) : SideWire{};
  });
}

SideWire SideStitchWire(const Package& package, const model::WireBondSettings& settings) {
  return LeavingOutFaults([&]() -> SideWire {
    const auto typical = TypicalOf(package.Stitches);
    const StitchRec stitch = typical ? *typical : MadeUpStitch(package);
    const double start = Inside(package, stitch.X1, stitch.Y1);
    const double end = Inside(package, stitch.X2, stitch.Y2);
    // Its outer end stays where it is, so that no stitch that runs askew ends beside the die.
    const bool inwards = end > start;
    const double startOut = inwards ? -start : -end - model::PlanLength(StartOf(stitch), EndOf(stitch));
    return {Profile(StartOf(stitch), EndOf(stitch), InScene(settings.StackLoopHeight, package),
                    InScene(settings.StitchExtension, package), startOut, inwards ? -1.0 : 1.0),
            double(stitch.PadSize1), double(stitch.PadSize2)};
  });
}

}  // namespace setup
