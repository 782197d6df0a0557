#include "import/pad_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <tuple>

#include "import/column_roles.h"
#include "import/names.h"
#include "import/source_file.h"
#include "import/terminals.h"
#include "import/text_table.h"
#include "model/input_error.h"
#include "model/numbers.h"
#include "model/text.h"

namespace importer {

namespace {

/// The origin of the table's places, relative to the die's middle. Only pads reveal it: leads lie on all
/// sides of the die.
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
    table.Fail(row, "there is no tier " + model::Quoted(table.Field(row, column)),
               "number tiers from 1 to 4");
  return std::to_string(static_cast<int>(*tier));
}

/// Reports unknown columns, because one of them may be a misspelled known one.
void NoteUnknownColumns(const TextTable& table, std::vector<std::string>& notes) {
  if (const std::string unknown = table.UnknownColumns(); !unknown.empty())
    notes.push_back("ignored: " + unknown);
}

/// True for the words that stand for no connection.
bool IsNotBonded(std::string_view word) {
  return model::EqualsUpper(word, "NC") || model::EqualsUpper(word, "N/C");
}

constexpr char kAdviceOnPlaces[] = "give it a header with the columns x and y";

/// True for a row that gives only a name, as lists do for pads without a place. Adds a note for the first
/// one.
bool HasNoPlace(const TextTable& table, const TableRow& row, Column x, Column y,
                std::vector<std::string>& notes) {
  if (!table.Field(row, x).empty() || !table.Field(row, y).empty()) return false;
  const std::string note = "rows without a place are left out";
  if (std::find(notes.begin(), notes.end(), note) == notes.end()) notes.push_back(note);
  return true;
}

/// Sets the openings that a table does not give: the usual size, or less where pads are close.
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

/// Leads from a table of fingers, or from a list of wires with both ends.
class FingerReader {
 public:
  FingerReader(const std::string& file, double unit, const glm::dvec2& dieSize)
      : table_(ReadSource(file), file), roles_(RolesOf(table_)), unit_(unit), dieSize_(dieSize) {
    frame_.File = file;
    list_ = roles_.HasBothEnds();
    if (list_) return;
    if (!roles_.SubsX) roles_.SubsX = roles_.DieX, roles_.SubsY = roles_.DieY;
    if (!roles_.Lead) roles_.Lead = roles_.PadNumber;
    // In a list of wires the pads' names are not the leads'.
    if (!roles_.LeadName && roles_.PadName != roles_.Net) roles_.LeadName = roles_.PadName;
  }

  LeadFrame Read();

 private:
  void TakeRow(const TableRow& row, const glm::dvec2& origin);
  bool TakePaddleRow(const Lead& lead, const glm::dvec2& middle, const glm::dvec2& size, double degrees);
  void AddLead(Lead lead, const glm::dvec2& middle);

  TextTable table_;
  Roles roles_;
  double unit_;
  glm::dvec2 dieSize_;
  bool list_ = false, points_ = false;
  LeadFrame frame_;
  std::map<std::tuple<std::string, double, double>, std::size_t> places_;
};

LeadFrame FingerReader::Read() {
  if (!table_.HasHeader() || !roles_.SubsX || !roles_.SubsY)
    throw model::InputError({frame_.File}, table_.WithUnknownColumns("it does not say where the fingers are"),
                            kAdviceOnPlaces);
  NoteUnknownColumns(table_, frame_.Notes);
  const glm::dvec2 origin = OriginOf(table_, list_ ? roles_.DieX : roles_.SubsX,
                                     list_ ? roles_.DieY : roles_.SubsY, dieSize_ / unit_);
  for (const TableRow& row : table_.Rows())
    if (!HasNoPlace(table_, row, roles_.SubsX, roles_.SubsY, frame_.Notes)) TakeRow(row, origin);
  if (points_) frame_.Notes.push_back("fingers without a size are drawn as points, 25 x 25 um");
  if (!list_) RefuseDuplicates(frame_);
  return std::move(frame_);
}

void FingerReader::TakeRow(const TableRow& row, const glm::dvec2& origin) {
  const glm::dvec2 place{table_.Number(row, *roles_.SubsX), table_.Number(row, *roles_.SubsY)};
  const glm::dvec2 middle = (place + origin) * unit_;
  const double length = table_.NumberIfAny(row, roles_.Width).value_or(0.0) * unit_;
  Lead lead{.Number = table_.Field(row, roles_.Lead),
            .Name = table_.Field(row, roles_.LeadName),
            .Net = table_.Field(row, roles_.Net),
            .Tier = TierOf(table_, row, roles_.Tier),
            .Width = table_.NumberIfAny(row, roles_.Height).value_or(0.0) * unit_,
            .Row = row.Line};
  const std::optional<double> angle = table_.NumberIfAny(row, roles_.Angle);
  if (length < 0.0 || lead.Width < 0.0) table_.Fail(row, "the finger's size is negative", "correct it");
  if (TakePaddleRow(lead, middle, {length, lead.Width}, angle.value_or(0.0))) return;
  // A row that a list leaves unbonded has no lead.
  if (list_ && IsNotBonded(lead.Label())) return;
  if (lead.Label().empty()) lead.Number = std::to_string(frame_.Leads.size() + 1);
  points_ = points_ || length == 0.0 || lead.Width == 0.0;
  const double across = std::fabs(middle.x) < std::fabs(middle.y) ? 90.0 : 0.0;
  LayLead(lead, middle, length, angle.value_or(across));
  AddLead(std::move(lead), middle);
}

/// Takes a row of the paddle: in a list the end of a down bond, among fingers the paddle itself. False for
/// any other row: a ground finger lies beside the die.
bool FingerReader::TakePaddleRow(const Lead& lead, const glm::dvec2& middle, const glm::dvec2& size,
                                 double degrees) {
  if (!IsPaddleWord(lead.Label())) return false;
  if (list_) {
    frame_.DownOfRow[lead.Row] = middle;
    return true;
  }
  const bool under = std::fabs(middle.x) < dieSize_.x / 2.0 && std::fabs(middle.y) < dieSize_.y / 2.0;
  if (!under && !model::EqualsUpper(lead.Label(), "PADDLE")) return false;
  if (size.x > 0.0 && size.y > 0.0) {
    frame_.DiePaddle = Paddle{middle, size, degrees};
  } else {
    frame_.Notes.push_back("the paddle has no width and height, and is left out");
  }
  return true;
}

void FingerReader::AddLead(Lead lead, const glm::dvec2& middle) {
  // In a list of wires a finger comes once for each of its wires.
  const auto [at, isNew] = places_.try_emplace({lead.Label(), middle.x, middle.y}, frame_.Leads.size());
  frame_.LeadOfRow[lead.Row] = list_ ? at->second : frame_.Leads.size();
  if (isNew || !list_) frame_.Leads.push_back(std::move(lead));
}

DiePad NamedPad(const TextTable& table, const Roles& roles, const TableRow& row) {
  DiePad pad{.Name = table.Field(row, roles.PadName), .Number = table.Field(row, roles.PadNumber)};
  if (pad.Name.empty()) pad.Name = pad.Number;
  if (pad.Name.empty()) table.Fail(row, "the pad has no name", "give it one in a column such as name or pad");
  return pad;
}

/// Takes the rest of the pad: place, size, net type and side.
void TakeRest(const TextTable& table, const Roles& roles, const TableRow& row, const glm::dvec2& origin,
              double unit, DiePad& pad) {
  const glm::dvec2 place{table.Number(row, *roles.DieX), table.Number(row, *roles.DieY)};
  pad.Middle = (place + origin) * unit;
  // In a list with both ends the columns of sizes are those of the fingers.
  if (!roles.HasBothEnds())
    pad.Size = glm::dvec2(table.NumberIfAny(row, roles.Width).value_or(0.0),
                          table.NumberIfAny(row, roles.Height).value_or(0.0)) *
               unit;
  if (pad.Size.x < 0.0 || pad.Size.y < 0.0) table.Fail(row, "the pad's size is negative", "correct it");
  pad.Type = NetTypeOf(table.Field(row, roles.Type));
  pad.Side = SideOf(table.Field(row, roles.Side));
}

}  // namespace

Die DieFromTable(const DieRequest& request) {
  if (!request.DieSize)
    throw model::InputError({request.File}, "a table of pads does not say how large the die is",
                            "give --die-size");
  const TextTable table(ReadSource(request.File), request.File);
  const Roles roles = RolesOf(table);
  if (!roles.DieX || !roles.DieY)
    throw model::InputError({request.File}, table.WithUnknownColumns("it does not say where the pads are"),
                            kAdviceOnPlaces);
  const glm::dvec2 origin = OriginOf(table, roles.DieX, roles.DieY, *request.DieSize / request.TableUnit);
  Die die{.File = request.File, .Pads = {}, .Size = *request.DieSize};
  NoteUnknownColumns(table, die.Notes);
  std::map<std::pair<double, double>, std::size_t> places;
  for (const TableRow& row : table.Rows()) {
    DiePad pad = NamedPad(table, roles, row);
    if (request.Rule.Names && !Matches(pad.Name, *request.Rule.Names)) continue;
    if (HasNoPlace(table, row, roles.DieX, roles.DieY, die.Notes)) continue;
    TakeRest(table, roles, row, origin, request.TableUnit, pad);
    // In a list of wires a pad comes once for each of its wires.
    const auto [at, isNew] = places.try_emplace({pad.Middle.x, pad.Middle.y}, die.Pads.size());
    const bool hasLeads = roles.Lead || roles.LeadName;
    die.PadOfRow[row.Line] = hasLeads ? at->second : die.Pads.size();
    if (isNew || !hasLeads) die.Pads.push_back(std::move(pad));
  }
  if (die.Pads.empty())
    throw model::InputError({request.File}, "no pads found in " + Counted(table.Rows().size(), "row", "rows"),
                            "give a row for each pad, or other --pads");
  if (!request.PadSize) GuessSizes(die, "--pad-size");
  return die;
}

LeadFrame FingersFromTable(const std::string& file, double unit, const glm::dvec2& dieSize) {
  return FingerReader(file, unit, dieSize).Read();
}

std::vector<std::string> LeadWords(std::string_view field) {
  std::vector<std::string> words;
  while (!field.empty()) {
    const std::size_t end = std::min(field.find_first_of(",;"), field.size());
    std::string_view word = field.substr(0, end);
    field.remove_prefix(std::min(end + 1, field.size()));
    while (word.starts_with(' ')) word.remove_prefix(1);
    while (word.ends_with(' ')) word.remove_suffix(1);
    if (word.empty() || word == "0" || word == "-" || IsNotBonded(word)) continue;
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
  const bool hasLeads = roles.Lead || roles.LeadName;
  if (!hasLeads || (!roles.PadName && !roles.PadNumber))
    throw model::InputError({file},
                            table.WithUnknownColumns("it does not say which pad is bonded to which lead"),
                            "give it the columns pad and lead");
  std::vector<BondRow> bonds;
  for (const TableRow& row : table.Rows()) {
    BondRow bond{.PadName = table.Field(row, roles.PadName),
                 .PadNumber = table.Field(row, roles.PadNumber),
                 .Leads = LeadWords(roles.LeadOf(table, row)),
                 .Row = row.Line,
                 .MayBeHeader = !table.HasHeader() && bonds.empty()};
    if (bond.PadName.empty() && bond.PadNumber.empty())
      table.Fail(row, "the row has no pad name or number", "add one, or remove the row");
    bonds.push_back(std::move(bond));
  }
  return bonds;
}

}  // namespace importer
