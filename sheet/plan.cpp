#include "sheet/plan.h"

#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <numbers>

#include "analysis/pads.h"
#include "sheet/pencil.h"

namespace sheet {

namespace {

using Outline = std::vector<glm::dvec2>;

constexpr Ink kPaddleFill = Grey(0.94);
constexpr Ink kLeadFill = Grey(0.84);
constexpr Ink kPadFill = Grey(0.55);

Outline OutlineOf(const std::array<glm::dvec2, 4>& corners, double unit) {
  Outline outline;
  for (const glm::dvec2& corner : corners) outline.push_back(corner * unit);
  return outline;
}

/// Half a circle around the end of an axis, from one side to the other.
void AddHalfCircle(const glm::dvec2& centre, const glm::dvec2& axis, double radius, Outline& outline) {
  constexpr int kSteps = 12;
  const glm::dvec2 across(-axis.y, axis.x);
  for (int k = 0; k <= kSteps; ++k) {
    const double angle = std::numbers::pi * (static_cast<double>(k) / kSteps - 0.5);
    outline.push_back(centre + radius * (std::cos(angle) * axis + std::sin(angle) * across));
  }
}

/// A pad with round ends is a straight part between two half circles.
Outline RoundOutline(const analysis::Pad& pad, double unit) {
  const analysis::PlanRectangle& shape = pad.Shape;
  const glm::dvec2 reach = shape.Axis * (shape.Half.x - shape.Half.y);
  Outline outline;
  AddHalfCircle(shape.Centre + reach, shape.Axis, shape.Half.y, outline);
  AddHalfCircle(shape.Centre - reach, -shape.Axis, shape.Half.y, outline);
  for (glm::dvec2& point : outline) point *= unit;
  return outline;
}

void AddPads(const std::vector<analysis::Pad>& pads, const char* layer, const Ink& fill, double unit,
             std::vector<PlanShape>& shapes) {
  const Stroke edge{.Width = 0.13};
  for (const analysis::Pad& pad : pads) {
    const analysis::PlanRectangle& shape = pad.Shape;
    if (pad.Round && shape.Half.x == shape.Half.y) {
      shapes.push_back({layer, Circle{shape.Centre * unit, shape.Half.x * unit, edge, fill}});
    } else {
      shapes.push_back(
          {layer,
           Area{{pad.Round ? RoundOutline(pad, unit) : OutlineOf(shape.Corners(), unit)}, edge, fill}});
    }
  }
}

void AddDie(const analysis::DieOutline& die, double unit, std::vector<PlanShape>& shapes) {
  shapes.push_back({layer::kDie, Area{.Outlines = {OutlineOf(analysis::RectangleOf(die).Corners(), unit)},
                                      .Pen = Stroke{.Width = 0.5},
                                      .Fill = Grey(1.0)}});
}

Outline OutlineOf(const model::DapRec& dap, double unit) {
  // In records of bands y points down.
  const glm::dvec2 from = glm::dvec2(dap.D1, -dap.D2) * unit;
  const glm::dvec2 to = glm::dvec2(dap.D3, -dap.D4) * unit;
  const glm::dvec2 axis = from == to ? glm::dvec2(1.0, 0.0) : glm::normalize(to - from);
  const glm::dvec2 along = axis * (std::fabs(double(dap.D5)) * unit / 2.0);
  const glm::dvec2 across(-along.y, along.x);
  return {from - along - across, to + along - across, to + along + across, from - along + across};
}

/// Bands overlap. Draws all outlines first and the fills over them, so that only the outline of the union
/// shows, at half its width.
void AddBands(const model::Package& package, double millimetres, std::vector<PlanShape>& shapes) {
  const double unit = double(package.UnitScale) * millimetres;
  const double width = package.Daps.Count() == 1 ? 0.25 : 0.5;
  std::vector<PlanShape> fills;
  for (const model::DapRec& dap : package.Daps) {
    const Outline outline = OutlineOf(dap, unit);
    const Area edges{.Outlines = {outline}, .Pen = Stroke{.Width = width, .Colour = Grey(0.3)}};
    const Area fill{.Outlines = {outline}, .Fill = kPaddleFill};
    shapes.push_back({layer::kPaddle, edges});
    fills.push_back({layer::kPaddle, fill});
  }
  // A single band shows its outline at full width.
  if (fills.size() == 1) std::swap(shapes.back(), fills.back());
  shapes.insert(shapes.end(), fills.begin(), fills.end());
}

}  // namespace

std::vector<PlanShape> PlanOf(const model::Package& package, double millimetresPerUnit) {
  std::vector<PlanShape> shapes;
  const bool wireBond = model::IsWireBonded(package);
  if (wireBond) {
    AddBands(package, millimetresPerUnit, shapes);
    AddRings(package, millimetresPerUnit, shapes);
    AddPads(analysis::SubstratePads(package), layer::kLeads, kLeadFill, millimetresPerUnit, shapes);
  }
  AddDie(analysis::BaseDieOf(package), millimetresPerUnit, shapes);
  std::vector<analysis::Pad> base, stacked;
  for (const analysis::Pad& pad : analysis::DiePads(package))
    (pad.IsStacked() ? stacked : base).push_back(pad);
  AddPads(base, layer::kDiePads, kPadFill, millimetresPerUnit, shapes);
  if (package.SDCompW != 0.0F) AddDie(analysis::StackedDieOf(package), millimetresPerUnit, shapes);
  AddPads(stacked, layer::kDiePads, kPadFill, millimetresPerUnit, shapes);
  return shapes;
}

}  // namespace sheet
