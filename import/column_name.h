/// Names of table columns, with one word for all that mean the same.
#pragma once

#include <string>
#include <string_view>

namespace importer {

/// A subject and its attribute: "pad", "lead", "pin", "net", "signal" or nothing, and "name", "#" (a number),
/// "x", "y" or nothing; for example "lead#" for "Lead Number", "Finger No." and "Subs#". Other names come out
/// in lower case without blanks and marks. Ignores letter case, blanks, underscores, points, dashes and text
/// in brackets.
std::string ColumnName(std::string_view text);

/// True for a name, as ColumnName gives it, that an import understands.
bool IsKnownColumn(std::string_view name);

/// True for a common column that an import does not need.
bool IsNeedlessColumn(std::string_view name);

}  // namespace importer
