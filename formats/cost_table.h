/// The costs of wires as a table: CSV, JSON, and cells for a window.
#pragma once

#include <string>
#include <vector>

#include "analysis/wire_costs.h"

namespace formats {

/// One value of a wire. Numbers have single precision; an unknown value is empty.
struct CostCell {
  const char* Column;
  std::string Text;
  bool IsNumber;
};

/// The values of a wire, in the order of the columns.
/// Units   millimetres, milliohms, nanohenries
std::vector<CostCell> CostCells(const analysis::WireCost& wire);

/// A line of column names and a line for each wire.
std::string CostsCsv(const analysis::WireCosts& costs);

/// An object with the list "wires"; the keys of a wire are the names of the columns.
std::string CostsJson(const analysis::WireCosts& costs);

}  // namespace formats
