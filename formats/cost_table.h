/// The costs of wires as a table: CSV, JSON, and the cells that a window shows.
#pragma once

#include <string>
#include <vector>

#include "analysis/wire_costs.h"

namespace formats {

/// One value of a wire. Numbers have as many digits as a single holds; what is not known is empty.
struct CostCell {
  const char* Column;
  std::string Text;
  bool IsNumber;
};

/// Every value of a wire in the columns' order: lengths in millimetres, milliohms, nanohenries.
std::vector<CostCell> CostCells(const analysis::WireCost& wire);

/// A line of column names and a line for each wire.
std::string CostsCsv(const analysis::WireCosts& costs);

/// One object with "wires", each with the columns' names.
std::string CostsJson(const analysis::WireCosts& costs);

}  // namespace formats
