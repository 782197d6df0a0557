/// Measured wires as text for other programs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/lengths.h"

namespace formats {

/// A field of a CSV file: in double quotes where it holds a comma, a quote or a line's end.
std::string CsvField(std::string_view text);

/// The table of a wire in words: "base", "stacked" or "stitch".
const char* TableOf(const model::RecordPlace& place);

// Every length's column ends in the unit's name, every angle's in "deg".

std::string WiresCsv(const std::vector<analysis::WireRow>& rows, const std::string& unit);
std::string GroupsCsv(const std::vector<analysis::WireGroup>& groups, const std::string& unit);

/// Both as one JSON object; without `rows` the groups alone.
std::string WiresJson(const std::vector<analysis::WireRow>* rows,
                      const std::vector<analysis::WireGroup>& groups, const std::string& unit);

}  // namespace formats
