/// The labels around a plan: number, lead and name of each wire, with leaders.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "sheet/bonding_diagram.h"
#include "sheet/label_placement.h"
#include "sheet/pencil.h"

namespace sheet {

/// What stands beside the plan for one wire, or for a pad of a package without wires.
/// Units  millimetres in the package
struct Label {
  std::size_t Number = 0;
  std::string Lead, Name;
  glm::dvec2 Anchor{};   ///< the outer end of its lead
  glm::dvec2 Towards{};  ///< unit vector, the way out
};

/// A label for each wire; for each die pad, outermost first, where there is no wire at all.
std::vector<Label> LabelsOf(const DiagramInputs& inputs);

/// The labels' text size and columns, from the plan outwards: number, lead, name.
struct LabelColumns {
  double Size = 2.5;
  double Number = 0.0, Lead = 0.0, Name = 0.0;

  double Pitch() const { return 1.25 * Size; }
  /// From the box around the plan to the far end of the longest label.
  double Depth() const;
};

LabelColumns ColumnsFor(const std::vector<Label>& labels, double size);

/// The plan on paper with the boxes that its labels need.
struct PlanFit {
  double Scale = 0.0;
  LabelColumns Columns;
  LabelRoom Room;
  glm::dvec2 Origin{};
};

/// Draws as many labels as there is room for, with their leaders.
/// Returns  how many
std::size_t DrawLabels(const std::vector<Label>& labels, const PlanFit& fit, Pencil& pencil);

}  // namespace sheet
