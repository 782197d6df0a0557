/// The numbers of wires as users see them.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/record_lines.h"
#include "analysis/wire_loops.h"
#include "model/package.h"

namespace analysis {

/// For each loop its number: 1 for the wire that comes first in the file, whatever wires are chosen.
std::vector<std::size_t> WireNumbers(const model::Package& package, const std::vector<WireLoop>& loops,
                                     const RecordLines& lines);

/// The loops' indices by these numbers.
std::vector<std::size_t> InFileOrder(const std::vector<std::size_t>& numbers);

}  // namespace analysis
