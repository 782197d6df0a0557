/// Finds the scale and the place of a plan on its paper.
#pragma once

#include <optional>
#include <vector>

#include "sheet/diagram_inputs.h"
#include "sheet/labels.h"
#include "sheet/pencil.h"

namespace sheet {

/// The areas of a sheet for its plan and its text.
struct SheetLayout {
  Box Frame, Plan, Side, ScaleBar;
  double BlockWidth = 0.0;  ///< of the title block

  explicit SheetLayout(const Paper& paper);
};

/// How many labels there are, and their columns at size 1.
struct LabelNeeds {
  std::size_t Count;
  LabelColumns Columns;

  explicit LabelNeeds(const std::vector<Label>& labels)
      : Count(labels.size()), Columns(ColumnsFor(labels, 1.0)) {}
};

/// The largest usual scale (or only `scale`) at which the plan fits with its labels. The labels are as large
/// as possible while all fit.
/// Units  `extent` in millimetres of the package
/// Returns  empty when no scale fits
std::optional<PlanFit> FitPlan(const LabelNeeds& labels, const Box& extent, const Box& room,
                               const std::optional<double>& scale);

}  // namespace sheet
