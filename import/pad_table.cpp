#include "import/pad_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <tuple>

#include "import/source_file.h"
#include "model/numbers.h"
#include "model/text.h"

namespace importer {

namespace {

using Column = std::optional<std::size_t>;

/// Which column of a table holds what.
struct Roles {
  Column PadName, PadNumber, Net, Lead, Side, Tier, Type;
  Column DieX, DieY, SubsX, SubsY, Width, Height, Angle;

  bool HasBothEnds() const { return DieX && DieY && SubsX && SubsY; }
};

bool IsNumberColumn(const TextTable& table, Column column) {
  return std::all_of(table.Rows().begin(), table.Rows().end(),
                     [&](const TableRow& row) { return NumberIn(table.Field(row, column)).has_value(); });
}

/// Names of pads: a column of names before one of pads, nets or pins. A column of pads is one of numbers
/// where another one has the names.
void FindPadRoles(const TextTable& table, Roles& roles) {
  const Column pad = table.Column({"pad"});
  roles.PadNumber = table.Column({"die#", "number", "padnumber", "no"});
  roles.PadName = table.Column({"name", "padname", "pinname", "signalname", "signal"});
  if (!roles.PadName) roles.PadName = table.ColumnEnding("pinname");
  if (!roles.PadName && pad && !(roles.Net && IsNumberColumn(table, pad))) {
    roles.PadName = pad;
  } else if (!roles.PadNumber) {
    roles.PadNumber = pad;
  }
  if (!roles.PadName) roles.PadName = roles.Net;
  if (!roles.PadName) roles.PadName = table.ColumnEnding("name");
}

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
  roles.Net = table.Column({"net", "netname"});
  FindPadRoles(table, roles);
  roles.Lead = table.Column({"subs#", "lead", "leadnumber", "leadname", "finger", "ball"});
  const Column pin = table.Column({"pin"});
  if (!roles.PadName) {
    roles.PadName = pin;
  } else if (!roles.Lead) {
    roles.Lead = pin;
  }
  roles.DieX = table.Column({"diex", "x", "padx", "centerx", "xcenter", "xcoord"});
  roles.DieY = table.Column({"diey", "y", "pady", "centery", "ycenter", "ycoord"});
  roles.SubsX = table.Column({"subsx"});
  roles.SubsY = table.Column({"subsy"});
  roles.Width = table.Column({"width"});
  roles.Height = table.Column({"height"});
  roles.Angle = table.Column({"angle"});
  roles.Side = table.Column({"side"});
  roles.Tier = table.Column({"tier", "layer"});
  roles.Type = table.Column({"type"});
  const Column padName = table.Column({"padname"});
  if (roles.HasBothEnds() && !roles.Lead && padName && roles.Net) {
    // A list with one name for each end: the wire has the net's, the lead the pad's.
    roles.Lead = padName;
    roles.PadName = roles.Net;
  }
  return roles;
}

/// Where the places of the table count from, as seen from the die's middle. Only places on the die tell:
/// leads lie on all sides of it.
glm::dvec2 OriginOf(const TextTable& table, Column x, Column y, const glm::dvec2& dieSize) {
  for (const TableRow& row : table.Rows())
    for (const Column column : {x, y})
      if (table.NumberIfAny(row, column).value_or(0.0) < 0.0) return glm::dvec2(0.0);
  return dieSize / -2.0;
}

char SideOf(const std::string& word) {
  if (word.empty()) return 0;
  const std::string upper = model::UpperCase(word);
  for (const char* const side : {"LEFT", "RIGHT", "TOP", "BOTTOM"})
    if (upper == side || upper == std::string(1, *side)) return *side;
  return 0;
}

/// Tiers as a package has them, "1" to "4".
std::string TierOf(const TextTable& table, const TableRow& row, Column column) {
  const std::optional<double> tier = NumberIn(table.Field(row, column));
  if (!tier) return "1";
  if (!(*tier >= 1.0 && *tier <= 4.0 && *tier == std::floor(*tier)))
    table.Fail(row, "there is no tier " + Quoted(table.Field(row, column)), "number tiers from 1 to 4");
  return std::to_string(static_cast<int>(*tier));
}

constexpr char kAdviceOnPlaces[] = "give it a header with the columns x and y";

/// True for a row that gives a name alone, as lists do for pads without a place. Says so once in `notes`.
bool HasNoPlace(const TextTable& table, const TableRow& row, Column x, Column y,
                std::vector<std::string>& notes) {
  if (!table.Field(row, x).empty() || !table.Field(row, y).empty()) return false;
  const std::string note = "rows without a place are left out";
  if (std::find(notes.begin(), notes.end(), note) == notes.end()) notes.push_back(note);
  return true;
}

/// Openings that a table does not give: the usual size, or less where pads are close.
void GuessSizes(Die& die, const std::string& option) {
  constexpr double kUsual = 0.06;
  constexpr double kPartOfPitch = 0.8;
  double nearest = std::numeric_limits<double>::infinity();
  std::vector<glm::dvec2> places;
  for (const DiePad& pad : die.Pads) places.push_back(pad.Middle);
  std::sort(places.begin(), places.end(), [](const auto& a, const auto& b) { return a.x < b.x; });
  for (std::size_t i = 0; i < places.size(); ++i) {
    for (std::size_t j = i + 1; j < places.size() && places[j].x - places[i].x < kUsual / kPartOfPitch; ++j) {
      const glm::dvec2 away = places[j] - places[i];
      const double apart = std::max(std::fabs(away.x), std::fabs(away.y));
      if (apart > 0.0) nearest = std::min(nearest, apart);
    }
  }
  const double side = std::min(kUsual, nearest * kPartOfPitch);
  bool guessed = false;
  for (DiePad& pad : die.Pads) {
    if (pad.Size.x > 0.0 && pad.Size.y > 0.0) continue;
    pad.Size = glm::dvec2(side);
    guessed = true;
  }
  const std::string text = model::GeneralText(static_cast<float>(side * 1000.0));
  if (guessed)
    die.Notes.push_back("pads without a size are drawn " + text + " x " + text + " um; give " + option);
}

}  // namespace

Die DieFromTable(const DieRequest& request) {
  if (!request.DieSize)
    throw ImportError({request.File}, "a table of pads does not say how large the die is", "give --die-size");
  const TextTable table(ReadSource(request.File), request.File);
  const Roles roles = RolesOf(table);
  if (!roles.DieX || !roles.DieY)
    throw ImportError({request.File}, "it does not say where the pads are", kAdviceOnPlaces);
  const glm::dvec2 origin = OriginOf(table, roles.DieX, roles.DieY, *request.DieSize / request.TableUnit);
  Die die{.File = request.File, .Pads = {}, .Size = *request.DieSize};
  std::map<std::pair<double, double>, std::size_t> places;
  for (const TableRow& row : table.Rows()) {
    DiePad pad{.Name = table.Field(row, roles.PadName), .Number = table.Field(row, roles.PadNumber)};
    if (pad.Name.empty()) pad.Name = pad.Number;
    if (pad.Name.empty())
      table.Fail(row, "the pad has no name", "give it one in a column such as name or pad");
    if (request.Rule.Names && !Matches(pad.Name, *request.Rule.Names)) continue;
    if (HasNoPlace(table, row, roles.DieX, roles.DieY, die.Notes)) continue;
    const glm::dvec2 place{table.Number(row, *roles.DieX), table.Number(row, *roles.DieY)};
    pad.Middle = (place + origin) * request.TableUnit;
    // The sizes of a list with both ends are the fingers'.
    if (!roles.HasBothEnds())
      pad.Size = glm::dvec2(table.NumberIfAny(row, roles.Width).value_or(0.0),
                            table.NumberIfAny(row, roles.Height).value_or(0.0)) *
                 request.TableUnit;
    pad.Type = NetTypeOf(table.Field(row, roles.Type));
    pad.Side = SideOf(table.Field(row, roles.Side));
    // In a list of wires a pad comes once for each of its wires.
    const auto [at, isNew] = places.try_emplace({pad.Middle.x, pad.Middle.y}, die.Pads.size());
    die.PadOfRow[row.Line] = roles.Lead ? at->second : die.Pads.size();
    if (isNew || !roles.Lead) die.Pads.push_back(std::move(pad));
  }
  if (die.Pads.empty())
    throw ImportError({request.File}, "no pads found in " + std::to_string(table.Rows().size()) + " rows",
                      "give a row for each pad, or other --pads");
  if (!request.PadSize) GuessSizes(die, "--pad-size");
  return die;
}

LeadFrame FingersFromTable(const std::string& file, double unit, const glm::dvec2& dieSize) {
  const TextTable table(ReadSource(file), file);
  Roles roles = RolesOf(table);
  const bool list = roles.HasBothEnds();
  if (!list && !roles.SubsX) roles.SubsX = roles.DieX, roles.SubsY = roles.DieY;
  const glm::dvec2 origin =
      OriginOf(table, list ? roles.DieX : roles.SubsX, list ? roles.DieY : roles.SubsY, dieSize / unit);
  if (!table.HasHeader() || !roles.SubsX || !roles.SubsY)
    throw ImportError({file}, "it does not say where the fingers are", kAdviceOnPlaces);
  if (!list && !roles.Lead) roles.Lead = roles.PadNumber;
  LeadFrame frame{.File = file, .Leads = {}, .DiePaddle = {}};
  bool points = false;
  std::map<std::tuple<std::string, double, double>, std::size_t> places;
  for (const TableRow& row : table.Rows()) {
    Lead lead{.Number = table.Field(row, roles.Lead), .Net = table.Field(row, roles.Net), .Row = row.Line};
    // In a list of wires the pads' names are not the leads'.
    if (!list && roles.PadName != roles.Net) lead.Name = table.Field(row, roles.PadName);
    if (lead.Label().empty()) lead.Number = std::to_string(frame.Leads.size() + 1);
    if (HasNoPlace(table, row, roles.SubsX, roles.SubsY, frame.Notes)) continue;
    lead.Tier = TierOf(table, row, roles.Tier);
    const glm::dvec2 place{table.Number(row, *roles.SubsX), table.Number(row, *roles.SubsY)};
    const glm::dvec2 middle = (place + origin) * unit;
    const double length = table.NumberIfAny(row, roles.Width).value_or(0.0) * unit;
    lead.Width = table.NumberIfAny(row, roles.Height).value_or(0.0) * unit;
    if (length < 0.0 || lead.Width < 0.0) table.Fail(row, "the finger's size is negative", "correct it");
    points = points || length == 0.0 || lead.Width == 0.0;
    const double across = std::fabs(middle.x) < std::fabs(middle.y) ? 90.0 : 0.0;
    LayLead(lead, middle, length, table.NumberIfAny(row, roles.Angle).value_or(across));
    // In a list of wires a finger comes once for each of its wires.
    const auto [at, isNew] = places.try_emplace({lead.Label(), middle.x, middle.y}, frame.Leads.size());
    frame.LeadOfRow[row.Line] = list ? at->second : frame.Leads.size();
    if (isNew || !list) frame.Leads.push_back(std::move(lead));
  }
  if (points) frame.Notes.push_back("fingers without a size are drawn as points, 25 x 25 um");
  if (!list) RefuseTwins(frame);
  return frame;
}

std::vector<std::string> LeadWords(std::string_view field) {
  std::vector<std::string> words;
  while (!field.empty()) {
    const std::size_t end = std::min(field.find_first_of(",;"), field.size());
    std::string_view word = field.substr(0, end);
    field.remove_prefix(std::min(end + 1, field.size()));
    while (word.starts_with(' ')) word.remove_prefix(1);
    while (word.ends_with(' ')) word.remove_suffix(1);
    if (word.empty() || word == "0" || word == "-" || model::EqualsUpper(word, "NC") ||
        model::EqualsUpper(word, "N/C"))
      continue;
    words.emplace_back(word);
  }
  return words;
}

bool IsPaddleWord(std::string_view word) {
  return model::EqualsUpper(word, "PADDLE") || model::EqualsUpper(word, "GND");
}

std::vector<BondRow> BondsFromTable(const std::string& file) {
  const TextTable table(ReadSource(file), file);
  const Roles roles = RolesOf(table);
  if (!roles.Lead || (!roles.PadName && !roles.PadNumber))
    throw ImportError({file}, "it does not say which pad meets which lead",
                      "give it the columns pad and lead");
  std::vector<BondRow> bonds;
  for (const TableRow& row : table.Rows()) {
    BondRow bond{.PadName = table.Field(row, roles.PadName),
                 .PadNumber = table.Field(row, roles.PadNumber),
                 .Leads = LeadWords(table.Field(row, roles.Lead)),
                 .Row = row.Line};
    if (bond.PadName.empty() && bond.PadNumber.empty())
      table.Fail(row, "the row names no pad", "name one, or remove the row");
    bonds.push_back(std::move(bond));
  }
  return bonds;
}

}  // namespace importer
