#include "setup/side_wires.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "model/arithmetic.h"
#include "model/for_each_wire.h"

namespace setup {

namespace {

using model::BondRec;
using model::Package;
using model::PackagePoint;
using model::RecordTable;
using model::StitchRec;

/// The loop of one wire.
struct Loop {
  double Length = 0.0;  ///< in plan
  std::size_t Number = 0;
  model::WirePath Path{};
};

/// The wires of one table.
struct Loops {
  std::vector<Loop> Drawn;
  bool Fault = false;  ///< at least one cannot be drawn
};

/// Unit of length for placeholder wires: the die height.
double PlaceholderUnit(const Package& package) {
  return package.CompZ != 0.0F ? std::fabs(double(package.CompZ)) : 1.0;
}

/// A placeholder bond on the right edge of the base die, with its pads at these distances inside and outside.
BondRec PlaceholderBond(const Package& package, double inside, double outside, double height) {
  const double edge = double(package.CompW) / 2.0;
  const double unit = PlaceholderUnit(package);
  BondRec bond;
  bond.DieSide = "R";
  bond.DieSizeX = bond.SubSizeX = model::Single(0.4 * unit);
  bond.WireStartX = model::Single(edge - inside * unit);
  bond.WireStartZ = model::Single(height);
  bond.WireEndX = bond.SubX = model::Single(edge + outside * unit);
  return bond;
}

StitchRec PlaceholderStitch(const Package& package) {
  const bool stacked = !package.SDBonds.Empty();
  const double edge = double(package.CompW) / 2.0;
  const double unit = PlaceholderUnit(package);
  StitchRec stitch;
  stitch.X1 = model::Single(edge - (stacked ? 2.5 : 3.0) * unit);
  stitch.X2 = model::Single(edge - 0.5 * unit);
  stitch.Z1 = model::Single(double(package.CompZ) + (stacked ? double(package.SDCompZ) : 0.0));
  stitch.Z2 = package.CompZ;
  stitch.PadSize1 = stitch.PadSize2 = model::Single(0.4 * unit);
  return stitch;
}

/// The distance in plan along the wire from its start to the base die's edge; 0 when it never reaches the
/// edge.
double ToEdge(const Package& package, const BondRec& bond) {
  try {
    return double(model::EdgeDistance(model::SideOf(bond.DieSide), WireStart(bond), bond.SubX, bond.SubY,
                                      {package.CompW, package.CompL}, 0.0F));
  } catch (const model::Fault&) {
    return 0.0;
  }
}

/// The loop from the side. It starts at `startOut`; `direction` is 1 outwards, -1 inwards.
std::vector<SidePoint> Profile(const Loop& loop, double startOut, double direction) {
  const PackagePoint& start = loop.Path.front();
  const PackagePoint& end = loop.Path.back();
  std::vector<SidePoint> profile;
  for (const PackagePoint& point : loop.Path) {
    const double along = ((double(point.X) - double(start.X)) * (double(end.X) - double(start.X)) +
                          (double(point.Y) - double(start.Y)) * (double(end.Y) - double(start.Y))) /
                         loop.Length;
    profile.push_back({startOut + direction * along, double(point.Z)});
  }
  return profile;
}

SideWire SideBond(const Package& package, const BondRec& bond, const Loop& loop) {
  return {Profile(loop, -ToEdge(package, bond), 1.0), double(std::max(bond.DieSizeX, bond.DieSizeY)),
          double(std::max(bond.SubSizeX, bond.SubSizeY))};
}

/// The distance of a pad at (x, y) inside the base die's nearest edge; negative outside.
double Inside(const Package& package, float x, float y) {
  return std::min(double(package.CompW) / 2.0 - std::fabs(double(x)),
                  double(package.CompL) / 2.0 - std::fabs(double(y)));
}

SideWire SideStitch(const Package& package, const StitchRec& stitch, const Loop& loop) {
  const double start = Inside(package, stitch.X1, stitch.Y1);
  const double end = Inside(package, stitch.X2, stitch.Y2);
  // Keep the outer end in place, so that a slanting stitch still ends on the die.
  const bool inwards = end > start;
  const double startOut = inwards ? -start : -end - loop.Length;
  return {Profile(loop, startOut, inwards ? -1.0 : 1.0), double(stitch.PadSize1), double(stitch.PadSize2)};
}

/// The wires of a package, by kind.
struct AllLoops {
  Loops Base, Stack, Stitch;

  AllLoops(const Package& package, const model::WireBondSettings& settings) {
    const model::WireSelection all;
    const auto take = [this](const model::Wire& wire) {
      const double length = model::PlanLength(wire.Path.front(), wire.Path.back());
      Of(wire.Place.Table).Drawn.push_back({length, wire.Place.Number, wire.Path});
    };
    const auto leaveOut = [this](const model::Fault& fault) {
      if (fault.Record()) Of(fault.Record()->Table).Fault = true;
    };
    try {
      model::ForEachWire({package, settings, all}, take, leaveOut);
    } catch (const model::Fault&) {
      Base.Fault = Stack.Fault = Stitch.Fault = true;  // the settings themselves cannot be scaled
    }
  }

  Loops& Of(RecordTable table) {
    return table == RecordTable::Bonds ? Base : table == RecordTable::SDBonds ? Stack : Stitch;
  }
};

/// Pairs a package's table with the loops of its wires.
template <class Record>
struct Kind {
  model::Table<Record> Package::*Records;
  Loops AllLoops::*Wires;
};

/// The wire of median length; nothing when no wire can be drawn.
template <class Record, class LayOut>
SideWire Middle(const Package& package, AllLoops& loops, const Kind<Record>& kind, LayOut&& layOut) {
  std::vector<Loop>& drawn = (loops.*kind.Wires).Drawn;
  if (drawn.empty()) return {};
  const auto middle = drawn.begin() + static_cast<std::ptrdiff_t>(drawn.size() / 2);
  std::nth_element(drawn.begin(), middle, drawn.end(), [](const Loop& a, const Loop& b) {
    return std::pair(a.Length, a.Number) < std::pair(b.Length, b.Number);
  });
  return layOut(package, (package.*kind.Records)[middle->Number], *middle);
}

/// The placeholder wire, drawn in a package that has the same dies and nothing else.
template <class Record, class MakePlaceholder, class LayOut>
SideWire Placeholder(const Package& package, const model::WireBondSettings& settings,
                     const Kind<Record>& kind, MakePlaceholder&& make, LayOut&& layOut) {
  try {
    Package placeholder;
    static_cast<model::PackageScalars&>(placeholder) = package;
    (placeholder.*kind.Records).Spare() = make();
    (placeholder.*kind.Records).Grow();
    AllLoops loops(placeholder, settings);
    return Middle(placeholder, loops, kind, layOut);
  } catch (const model::Fault&) {
    return {};
  }
}

}  // namespace

SideWires SideWiresOf(const Package& package, const model::WireBondSettings& settings) {
  AllLoops loops(package, settings);
  const auto side = [&](const auto& kind, auto make, auto layOut) {
    const Loops& wires = loops.*kind.Wires;
    return wires.Drawn.empty() && !wires.Fault ? Placeholder(package, settings, kind, make, layOut)
                                               : Middle(package, loops, kind, layOut);
  };
  const double top = double(package.CompZ);
  const double stackTop = top + double(package.SDCompZ);
  return {side(
              Kind<BondRec>{&Package::Bonds, &AllLoops::Base},
              [&] { return PlaceholderBond(package, 0.5, 3.0, top); }, SideBond),
          side(
              Kind<BondRec>{&Package::SDBonds, &AllLoops::Stack},
              [&] { return PlaceholderBond(package, 2.5, 5.0, stackTop); }, SideBond),
          side(
              Kind<StitchRec>{&Package::Stitches, &AllLoops::Stitch},
              [&] { return PlaceholderStitch(package); }, SideStitch)};
}

}  // namespace setup
