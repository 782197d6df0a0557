/// The bonding diagram of a package: plan, numbers, names, title block and tables on sheets.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "sheet/diagram_inputs.h"
#include "sheet/drawing.h"

namespace sheet {

/// The sheet is too small. The message says what to do.
class DoesNotFit : public std::runtime_error {
 public:
  explicit DoesNotFit(const std::string& text, std::optional<Paper> fitting = {})
      : std::runtime_error(text), Fitting(std::move(fitting)) {}

  std::optional<Paper> Fitting;  ///< a paper that the plan fits on, if there is one
};

/// Faults  TypesettingFault; DoesNotFit; DivisionByZero for a bowed ring without bulge
Drawing BondingDiagram(const DiagramInputs& inputs);

}  // namespace sheet
