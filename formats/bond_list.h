/// The wires as the tables that assembly houses and layout programs exchange.
#pragma once

#include <string>
#include <vector>

#include "analysis/lengths.h"
#include "analysis/record_lines.h"
#include "analysis/wire_loops.h"
#include "model/package.h"

namespace formats {

/// Every loop with its row, in one order.
struct BondListInputs {
  const model::Package& Package;
  const analysis::RecordLines& Lines;
  const std::vector<analysis::WireLoop>& Loops;
  const std::vector<analysis::WireRow>& Rows;
};

// In the order of the file's lines, lengths in its unit.

/// CSV with a line of column names: net, lead, side, layer, length, angle, both ends.
std::string BondList(const BondListInputs& inputs);

/// CSV without column names: number, net, lead, place on the die.
std::string NetList(const BondListInputs& inputs);

}  // namespace formats
