/// The option that names a unit of length.
#pragma once

#include <optional>

#include "analysis/units.h"

namespace CLI {
class App;
}

namespace yax {

/// Adds --unit, which accepts the name of a unit.
void AddUnitOption(CLI::App& command, const char* description, std::optional<analysis::LengthUnit>& unit);

}  // namespace yax
