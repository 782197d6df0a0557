#include "import/column_roles.h"

#include <algorithm>

#include "import/source_file.h"

namespace importer {

namespace {

bool IsNumberColumn(const TextTable& table, Column column) {
  return std::all_of(table.Rows().begin(), table.Rows().end(),
                     [&](const TableRow& row) { return NumberIn(table.Field(row, column)).has_value(); });
}

/// Finds the pads' names: in a column of names, else of pads, nets or pins. A column of pads holds numbers
/// when another one has the names. Pins are the chip's in a table of places, else the package's.
void FindPadRoles(const TextTable& table, Roles& roles) {
  const Column pad = table.Column({"pad"});
  roles.PadNumber = table.Column({"pad#", "#"});
  roles.PadName = table.Column({"name", "padname", "signalname", "signal"});
  if (!roles.PadName && (roles.DieX || !(pad || roles.PadNumber))) roles.PadName = table.Column({"pinname"});
  if (!roles.PadName) roles.PadName = table.ColumnEnding("pinname");
  if (!roles.PadName && pad && !(roles.Net && IsNumberColumn(table, pad))) {
    roles.PadName = pad;
  } else if (!roles.PadNumber) {
    roles.PadNumber = pad;
  }
  if (!roles.PadName) roles.PadName = roles.Net;
  if (!roles.PadName) roles.PadName = table.ColumnEnding("name");
}

/// A column of pins holds the leads when pads have columns too.
void FindLeadRoles(const TextTable& table, Roles& roles) {
  roles.Lead = table.Column({"lead#", "lead"});
  roles.LeadName = table.Column({"leadname"});
  if (!roles.Lead) roles.Lead = table.Column({"pin#"});
  const Column pin = table.Column({"pin"});
  if (!roles.PadName && !roles.PadNumber) {
    roles.PadName = pin;
  } else if (!roles.Lead) {
    roles.Lead = pin;
  }
  const Column pinName = table.Column({"pinname"});
  if (!roles.LeadName && pinName != roles.PadName) roles.LeadName = pinName;
  const Column padName = table.Column({"padname"});
  if (roles.HasBothEnds() && !roles.Lead && !roles.LeadName && padName && roles.Net) {
    // A list with one name for each end: the net's name is the wire's, the pad's name the lead's.
    roles.Lead = padName;
    roles.PadName = roles.Net;
  }
}

}  // namespace

Roles RolesOf(const TextTable& table) {
  Roles roles;
  if (!table.HasHeader()) {
    // Pad number, net, lead, x, y; or pad, lead.
    const bool two = table.Columns() == 2;
    roles.PadName = two ? 0 : 1;
    roles.Lead = two ? 1 : 2;
    if (!two) roles.PadNumber = 0, roles.Net = 1, roles.DieX = 3, roles.DieY = 4;
    return roles;
  }
  roles.DieX = table.Column({"padx", "x"});
  roles.DieY = table.Column({"pady", "y"});
  roles.SubsX = table.Column({"leadx", "pinx"});
  roles.SubsY = table.Column({"leady", "piny"});
  roles.Width = table.Column({"width"});
  roles.Height = table.Column({"height"});
  roles.Angle = table.Column({"angle"});
  roles.Side = table.Column({"side"});
  roles.Tier = table.Column({"tier", "layer"});
  roles.Type = table.Column({"type"});
  roles.Net = table.Column({"net", "netname"});
  FindPadRoles(table, roles);
  FindLeadRoles(table, roles);
  return roles;
}

}  // namespace importer
