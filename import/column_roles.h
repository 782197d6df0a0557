/// The roles of the columns in a table of pads, fingers or bonds.
#pragma once

#include <optional>
#include <string>

#include "import/text_table.h"

namespace importer {

using Column = std::optional<std::size_t>;

struct Roles {
  Column PadName, PadNumber, Net, Lead, LeadName, Side, Tier, Type;
  Column DieX, DieY, SubsX, SubsY, Width, Height, Angle;

  bool HasBothEnds() const { return DieX && DieY && SubsX && SubsY; }
  /// The lead's number, or its name where the row has none.
  std::string LeadOf(const TextTable& table, const TableRow& row) const {
    const std::string& lead = table.Field(row, Lead);
    return lead.empty() ? table.Field(row, LeadName) : lead;
  }
};

/// The roles by the names in the header, or by the number of columns.
Roles RolesOf(const TextTable& table);

}  // namespace importer
