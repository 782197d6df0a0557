/// The labels around a plan: number, lead and name of each wire, with leaders.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "sheet/diagram_inputs.h"
#include "sheet/label_placement.h"
#include "sheet/pencil.h"

namespace sheet {

/// The label of one wire, or of a pad in a package without wires.
/// Units  millimetres in the package
struct Label {
  std::size_t Number = 0;
  std::string Lead, Name;
  glm::dvec2 Anchor{};   ///< the outer end of its lead
  glm::dvec2 Towards{};  ///< unit vector outwards
};

/// A label for each wire, or for each die pad, outermost first, in a package without wires.
std::vector<Label> LabelsOf(const DiagramInputs& inputs);

/// The labels' text size and columns, from the plan outwards: number, lead, name.
struct LabelColumns {
  double Size = 2.5;
  double Number = 0.0, Lead = 0.0, Name = 0.0;

  double Pitch() const { return 1.25 * Size; }
  /// The distance from the box around the plan to the far end of the longest label.
  double Depth() const;
};

LabelColumns ColumnsFor(const std::vector<Label>& labels, double size);

/// The plan on paper with the boxes for its labels.
struct PlanFit {
  double Scale = 0.0;
  LabelColumns Columns;
  LabelRoom Room;
  glm::dvec2 Origin{};
};

/// Draws as many labels as fit, with their leaders.
/// Returns  their number
std::size_t DrawLabels(const std::vector<Label>& labels, const PlanFit& fit, Pencil& pencil);

}  // namespace sheet
