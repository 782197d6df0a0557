/// A package from above without its wires: dies, pads, rings and bands.
#pragma once

#include <variant>
#include <vector>

#include "model/package.h"
#include "sheet/drawing.h"

namespace sheet {

/// One shape of the plan.
/// Units  millimetres in the package, y up
struct PlanShape {
  const char* Layer = "";
  std::variant<Area, Circle> What;
};

/// Everything that the viewer shows of the package except wires, bottom first.
/// Faults  DivisionByZero for a bowed ring without bulge
std::vector<PlanShape> PlanOf(const model::Package& package, double millimetresPerUnit);

/// The bands of all rings, whole and in pieces; appended to `shapes`.
/// Faults  DivisionByZero for a bowed ring without bulge
void AddRings(const model::Package& package, double millimetresPerUnit, std::vector<PlanShape>& shapes);

}  // namespace sheet
