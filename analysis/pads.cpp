#include "analysis/pads.h"

#include <algorithm>
#include <cmath>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <limits>
#include <map>
#include <string>
#include <utility>

#include "model/side.h"
#include "model/text.h"

namespace analysis {

namespace {

using model::BondRec;
using model::RecordTable;

bool IsRectangle(const std::string& shape) { return model::EqualsUpper(shape, "RECTANGLE"); }

/// The pad as the viewer draws it; nothing for an unknown shape or a size of 0.
std::optional<Pad> DiePadOf(const BondRec& bond, double unit) {
  const bool rectangle = IsRectangle(bond.DieShape);
  if (!rectangle && bond.DieShape != "ROUND") return std::nullopt;
  if (bond.DieSizeX == 0.0F || (rectangle && bond.DieSizeY == 0.0F)) return std::nullopt;
  const glm::dvec2 half =
      glm::abs(glm::dvec2(bond.DieSizeX, rectangle ? bond.DieSizeY : bond.DieSizeX)) * unit / 2.0;
  return Pad{{}, !rectangle, {.Centre = glm::dvec2(bond.DieX, bond.DieY) * unit, .Half = half}};
}

/// Which way the length of a substrate pad runs. The pad's own angle counts clockwise from the direction
/// across its die pad's edge; a die pad on no edge gives none.
std::optional<glm::dvec2> LengthAxis(const BondRec& bond) {
  const std::optional<model::Side> side = model::SideOf(bond.DieSide);
  if (!side) return std::nullopt;
  return AxisAt((model::IsUpright(*side) ? 0.0 : 90.0) - double(bond.SubAngle));
}

Pad SubstratePadOf(const BondRec& bond, const glm::dvec2& axis, double unit) {
  const double length = std::fabs(double(bond.SubSizeX)) * unit;
  const double width = std::fabs(double(bond.SubSizeY)) * unit;
  const bool round = !IsRectangle(bond.SubShape);
  return {{},
          round,
          {.Centre = glm::dvec2(bond.SubX, bond.SubY) * unit,
           .Axis = axis,
           .Half = {round ? length / 4.0 + width / 2.0 : length / 2.0, width / 2.0}}};
}

void AddSubstratePads(const model::Table<BondRec>& bonds, RecordTable table, double unit,
                      std::vector<Pad>& pads) {
  for (std::size_t k = 0; k < bonds.Count(); ++k) {
    const BondRec& bond = bonds[k];
    if (bond.SubX == 0.0F && bond.SubY == 0.0F) continue;
    const std::optional<glm::dvec2> axis = LengthAxis(bond);
    if (axis && bond.SubSizeX != 0.0F) {
      if (bond.SubSizeY == 0.0F) continue;
      pads.push_back(SubstratePadOf(bond, *axis, unit));
    } else {
      // Deliberate: such a pad is drawn over the one before it, with that one's shape.
      if (pads.empty()) continue;
      pads.push_back(pads.back());
    }
    pads.back().Place = {table, k, model::BondPart::SubstratePad};
  }
}

}  // namespace

PlanRectangle RectangleOf(const DieOutline& die) {
  return {.Centre = die.Centre,
          .Axis = AxisAt(die.Degrees),
          .Half = glm::abs(glm::dvec2(die.Width, die.Length)) / 2.0};
}

std::vector<Pad> DiePads(const model::Package& package) {
  std::vector<Pad> pads;
  const auto add = [&](const model::Table<BondRec>& bonds, RecordTable table) {
    const bool stacked = table == RecordTable::SDBonds;
    for (std::size_t k = 0; k < bonds.Count(); ++k) {
      std::optional<Pad> pad = DiePadOf(bonds[k], double(package.UnitScale));
      // Only a stacked die turns the corners from which its rectangular pads are drawn.
      if (!pad || (stacked && !pad->Round && package.SDCompW == 0.0F)) continue;
      pad->Place = {table, k, model::BondPart::DiePad};
      if (stacked) pad->Shape.Axis = AxisAt(-double(package.SDRotation));
      pads.push_back(*pad);
    }
  };
  add(package.Bonds, RecordTable::Bonds);
  add(package.SDBonds, RecordTable::SDBonds);
  return pads;
}

std::vector<Pad> SubstratePads(const model::Package& package) {
  std::vector<Pad> pads;
  if (!model::IsWireBonded(package)) return pads;
  AddSubstratePads(package.Bonds, RecordTable::Bonds, double(package.UnitScale), pads);
  AddSubstratePads(package.SDBonds, RecordTable::SDBonds, double(package.UnitScale), pads);
  return pads;
}

const BondRec& BondOf(const model::Package& package, const Pad& pad) {
  return (pad.IsStacked() ? package.SDBonds : package.Bonds)[pad.Place.Number];
}

std::optional<double> SmallestPitch(const model::Package& package, const std::vector<Pad>& diePads) {
  std::map<std::pair<bool, model::Side>, std::vector<glm::dvec2>> rows;
  for (const Pad& pad : diePads) {
    const std::optional<model::Side> side = model::SideOf(BondOf(package, pad).DieSide);
    if (!side) continue;
    // The first coordinate runs along the edge.
    const glm::dvec2& at = pad.Shape.Centre;
    rows[{pad.IsStacked(), *side}].push_back(model::IsUpright(*side) ? glm::dvec2(at.y, at.x) : at);
  }
  double least = std::numeric_limits<double>::infinity();
  for (auto& [row, centres] : rows) {
    std::sort(centres.begin(), centres.end(), [](const auto& a, const auto& b) { return a.x < b.x; });
    for (std::size_t k = 0; k < centres.size(); ++k)
      for (std::size_t next = k + 1; next < centres.size() && centres[next].x - centres[k].x < least; ++next)
        least = std::min(least, glm::distance(centres[k], centres[next]));
  }
  return std::isinf(least) ? std::nullopt : std::optional(least);
}

}  // namespace analysis
