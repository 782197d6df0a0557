/// Clearances as columns and as JSON.
#pragma once

#include <string>

#include "analysis/clearance.h"
#include "analysis/units.h"

namespace formats {

/// A length with the decimals of its unit; never "-0".
std::string LengthText(double length, const analysis::LengthUnit& unit);

/// A line for each pair; the last line begins with "#" and has the totals.
std::string ColumnsOf(const analysis::Clearances& clearances, const analysis::LengthUnit& unit);

std::string JsonOf(const analysis::Clearances& clearances, const analysis::LengthUnit& unit);

}  // namespace formats
