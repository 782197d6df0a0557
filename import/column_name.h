/// What the header of a table calls a column, as one word for all that mean the same.
#pragma once

#include <string>
#include <string_view>

namespace importer {

/// A subject and what is said of it: "pad", "lead", "pin", "net", "signal" or nothing, and "name", "#" (a
/// number), "x", "y" or nothing; for example "lead#" for "Lead Number", "Finger No." and "Subs#". Other names
/// come out in lower case without blanks and marks. Letter case, blanks, underscores, points, dashes and what
/// stands in brackets do not count.
std::string ColumnName(std::string_view text);

/// True for a name, as ColumnName gives it, that says what the column holds.
bool IsKnownColumn(std::string_view name);

/// True for a column of which an import has no need, though tables often have it.
bool IsNeedlessColumn(std::string_view name);

}  // namespace importer
