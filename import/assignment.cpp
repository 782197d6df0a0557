#include "import/assignment.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <limits>
#include <map>
#include <set>
#include <utility>

#include "import/argument_error.h"
#include "import/names.h"
#include "import/order_match.h"
#include "import/pad_table.h"
#include "model/input_error.h"
#include "model/text.h"

namespace importer {

namespace {

constexpr char kAdviceOnPads[] = "give the name or number of one pad of the die";
constexpr char kAdviceOnPadOrHeader[] =
    "give the name or number of one pad of the die, or, in a header, the columns pad and lead";
constexpr char kAdviceOnLeads[] = "give the number or name of one lead of the package";

/// The leads that a pad is bonded to, before the landing points are known.
struct Partners {
  bool Decided = false;  ///< by an exception or a table, even to stay free
  bool OnPaddle = false;
  std::size_t PaddleRow = 0;         ///< row of the table that asks for the paddle; 0 for an exception
  std::vector<glm::dvec2> DownEnds;  ///< the paddle ends of down bonds whose table gives both ends
  std::vector<std::size_t> Leads;
};

/// Finds the number of an item by its text. A text that several items share finds nothing.
class Names {
 public:
  void Add(const std::string& text, std::size_t number) {
    if (text.empty()) return;
    const auto [place, isNew] = numbers_.try_emplace(text, number);
    if (!isNew && place->second != number) place->second = kSeveral;
  }
  std::optional<std::size_t> Find(const std::string& text) const {
    const auto found = numbers_.find(text);
    if (found == numbers_.end() || found->second == kSeveral) return std::nullopt;
    return found->second;
  }

 private:
  static constexpr std::size_t kSeveral = std::numeric_limits<std::size_t>::max();
  std::map<std::string, std::size_t> numbers_;
};

class Assigner {
 public:
  Assigner(const Die& die, const LeadFrame& frame, const BondRequest& request)
      : die_(die), frame_(frame), request_(request), partners_(die.Pads.size()), taken_(frame.Leads.size()) {
    for (std::size_t i = 0; i < die.Pads.size(); ++i) {
      padNames_.Add(die.Pads[i].Name, i);
      padPins_.Add(die.Pads[i].Pin, i);
      padNumbers_.Add(die.Pads[i].Number, i);
    }
    for (std::size_t i = 0; i < frame.Leads.size(); ++i) {
      leadNumbers_.Add(frame.Leads[i].Number, i);
      leadNames_.Add(frame.Leads[i].Name, i);
      leadNets_.Add(frame.Leads[i].PlainNet(), i);
      leadFields_.Add(frame.Leads[i].Field, i);
    }
  }

  Assignment Run();

 private:
  std::optional<std::size_t> FindPad(const std::string& name, const std::string& number) const;
  std::optional<std::size_t> FindLead(const std::string& word) const;
  void TakeUnused();
  void TakeException(const std::string& text);
  void TakeTable();
  void TakeRow(const BondRow& row, std::size_t pad);
  void Meet(std::size_t pad, std::size_t lead);
  std::vector<std::size_t> OpenPads() const;
  void MatchAll(const std::vector<std::size_t>& pads, const std::vector<std::size_t>& leads);
  void MatchNames();
  void MatchGroup(std::string (*textOf)(const Lead&));
  glm::dvec2 DownFrom(std::size_t number) const;
  Assignment Result();

  const Die& die_;
  const LeadFrame& frame_;
  const BondRequest& request_;
  std::vector<Partners> partners_;
  std::vector<bool> taken_;  ///< leads that a match must not use
  std::set<std::size_t> unused_;
  Names padNames_, padPins_, padNumbers_, leadNumbers_, leadNames_, leadNets_, leadFields_;
};

std::optional<std::size_t> Assigner::FindPad(const std::string& name, const std::string& number) const {
  for (const auto& [names, text] : {std::pair(&padNames_, &name), std::pair(&padPins_, &name)})
    // The first of several pads with this name has it only because the others were renamed.
    if (const auto pad = names->Find(*text); pad && padPins_.Find(die_.Pads[*pad].Pin)) return pad;
  if (const auto pad = padNumbers_.Find(number)) return pad;
  if (const auto pad = padNumbers_.Find(name)) return pad;
  if (const auto pad = padNames_.Find(name)) return pad;
  return padNames_.Find(Unescaped(name));
}

std::optional<std::size_t> Assigner::FindLead(const std::string& word) const {
  for (const Names* const names : {&leadNumbers_, &leadNames_, &leadNets_, &leadFields_})
    if (const auto lead = names->Find(word)) return lead;
  return std::nullopt;
}

void Assigner::TakeUnused() {
  for (const std::string& word : request_.Unused) {
    const std::optional<std::size_t> lead = FindLead(word);
    if (!lead) throw ArgumentError("unused", "there is no lead " + model::Quoted(word), kAdviceOnLeads);
    taken_[*lead] = true;
    unused_.insert(*lead);
  }
}

void Assigner::Meet(std::size_t pad, std::size_t lead) {
  partners_[pad].Leads.push_back(lead);
  taken_[lead] = true;
}

void Assigner::TakeException(const std::string& text) {
  const std::size_t equals = text.rfind('=');
  if (equals == std::string::npos)
    throw ArgumentError("bond", model::Quoted(text) + " has no '='", "write PAD=LEAD, PAD=PADDLE or PAD=");
  const std::string name = text.substr(0, equals);
  const std::optional<std::size_t> pad = FindPad(name, name);
  if (!pad) throw ArgumentError("bond", "there is no pad " + model::Quoted(name), kAdviceOnPads);
  partners_[*pad].Decided = true;
  for (const std::string& word : LeadWords(text.substr(equals + 1))) {
    if (word == "PADDLE") {
      partners_[*pad].OnPaddle = true;
      continue;
    }
    const std::optional<std::size_t> lead = FindLead(word);
    if (!lead) throw ArgumentError("bond", "there is no lead " + model::Quoted(word), kAdviceOnLeads);
    Meet(*pad, *lead);
  }
}

/// Bonds the pads as the table says, except those with an exception.
void Assigner::TakeTable() {
  std::vector<bool> excepted;
  for (const Partners& partners : partners_) excepted.push_back(partners.Decided);
  for (const BondRow& row : BondsFromTable(request_.TableFile)) {
    // In a table that is also the die's, the row itself is the pad.
    const auto own = die_.PadOfRow.find(row.Row);
    const bool ownTable = request_.TableFile == die_.File;
    // A row of such a table without a pad was left out of the die.
    if (ownTable && own == die_.PadOfRow.end()) continue;
    const std::optional<std::size_t> pad = ownTable ? own->second : FindPad(row.PadName, row.PadNumber);
    if (!pad)
      throw model::InputError(
          {request_.TableFile, row.Row},
          "there is no pad " + model::Quoted(row.PadName.empty() ? row.PadNumber : row.PadName),
          row.MayBeHeader ? kAdviceOnPadOrHeader : kAdviceOnPads);
    if (!excepted[*pad]) TakeRow(row, *pad);
  }
}

void Assigner::TakeRow(const BondRow& row, std::size_t pad) {
  Partners& partners = partners_[pad];
  partners.Decided = true;
  if (request_.TableFile == frame_.File) {
    // In a table that is also the package's, the row itself is the lead.
    const auto lead = frame_.LeadOfRow.find(row.Row);
    if (lead != frame_.LeadOfRow.end()) return Meet(pad, lead->second);
    const auto down = frame_.DownOfRow.find(row.Row);
    if (down != frame_.DownOfRow.end()) return partners.DownEnds.push_back(down->second);
  }
  for (const std::string& word : row.Leads) {
    const std::optional<std::size_t> lead = FindLead(word);
    if (IsPaddleWord(word) && (frame_.DiePaddle || !lead)) {
      partners.OnPaddle = true;
      partners.PaddleRow = row.Row;
    } else if (!lead) {
      throw model::InputError({request_.TableFile, row.Row}, "there is no lead " + model::Quoted(word),
                              kAdviceOnLeads);
    } else if (unused_.contains(*lead)) {
      throw model::InputError({request_.TableFile, row.Row},
                              "lead " + model::Quoted(word) + " is in --unused",
                              "remove it from the row or from --unused");
    } else {
      Meet(pad, *lead);
    }
  }
}

std::vector<std::size_t> Assigner::OpenPads() const {
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < partners_.size(); ++i)
    if (!partners_[i].Decided && partners_[i].Leads.empty()) open.push_back(i);
  return open;
}

/// Matches some pads and some leads in their order.
void Assigner::MatchAll(const std::vector<std::size_t>& pads, const std::vector<std::size_t>& leads) {
  if (pads.size() * leads.size() > kMostOrderPairs)
    throw ArgumentError("bonds",
                        std::to_string(pads.size()) + " pads and " + std::to_string(leads.size()) +
                            " leads are too many to match in order; the limit is 400 million pairs",
                        "give a table with --bonds");
  std::vector<glm::dvec2> starts, ends;
  for (const std::size_t pad : pads) starts.push_back(die_.Pads[pad].Middle);
  for (const std::size_t lead : leads) ends.push_back(LandingOn(frame_.Leads[lead], request_.Land));
  const auto partners = MatchInOrder(starts, ends);
  for (std::size_t i = 0; i < pads.size(); ++i)
    if (partners[i]) Meet(pads[i], leads[*partners[i]]);
}

/// Matches pads with the leads whose text is the pad's name or pin.
void Assigner::MatchGroup(std::string (*textOf)(const Lead&)) {
  std::map<std::string, std::vector<std::size_t>> leads;
  for (std::size_t i = 0; i < frame_.Leads.size(); ++i)
    if (const std::string name = textOf(frame_.Leads[i]); !taken_[i] && !name.empty())
      leads[name].push_back(i);
  std::map<std::string, std::vector<std::size_t>> pads;
  for (const std::size_t pad : OpenPads()) {
    // Each of several pads of one pin may meet a lead with the pin's name, unless a lead has the pad's own
    // name.
    for (const std::string& name : {die_.Pads[pad].Name, die_.Pads[pad].Pin}) {
      if (!leads.contains(name)) continue;
      pads[name].push_back(pad);
      break;
    }
  }
  for (const auto& [name, group] : pads) MatchAll(group, leads.at(name));
}

void Assigner::MatchNames() {
  MatchGroup([](const Lead& lead) { return lead.Name; });
  MatchGroup([](const Lead& lead) { return lead.Number; });
  MatchGroup([](const Lead& lead) { return lead.PlainNet(); });
}

/// Where the down bond of a pad ends.
glm::dvec2 Assigner::DownFrom(std::size_t number) const {
  const DiePad& pad = die_.Pads[number];
  const std::size_t row = partners_[number].PaddleRow;
  const auto refuse = [&](const std::string& why, const std::string& advice) {
    const std::string what = "pad " + model::Quoted(pad.Name) + " cannot be bonded down: " + why;
    if (row != 0) throw model::InputError({request_.TableFile, row}, what, advice);
    throw ArgumentError("bond", what, advice);
  };
  if (!frame_.DiePaddle) refuse("the package has no paddle", "bond it to a lead");
  const std::optional<glm::dvec2> end = LandingOnPaddle(pad, die_, *frame_.DiePaddle);
  if (!end)
    refuse("the paddle does not extend beyond the die there", "bond it to a lead, or give a larger paddle");
  return *end;
}

Assignment Assigner::Result() {
  Assignment result;
  result.ReportsFree = request_.Plan != BondPlan::None;
  for (std::size_t i = 0; i < partners_.size(); ++i) {
    const Partners& partners = partners_[i];
    if (partners.OnPaddle) result.Wires.push_back({i, std::nullopt, DownFrom(i)});
    for (const glm::dvec2& end : partners.DownEnds) result.Wires.push_back({i, std::nullopt, end});
    for (const std::size_t lead : partners.Leads)
      result.Wires.push_back({i, lead, LandingOn(frame_.Leads[lead], request_.Land)});
    if (!partners.Decided && partners.Leads.empty() && result.ReportsFree)
      result.PadsWithoutLead.push_back(i);
  }
  result.UnusedLeads.assign(unused_.begin(), unused_.end());
  return result;
}

Assignment Assigner::Run() {
  TakeUnused();
  for (const std::string& text : request_.Exceptions) TakeException(text);
  switch (request_.Plan) {
    case BondPlan::Order: {
      std::vector<std::size_t> free;
      for (std::size_t i = 0; i < taken_.size(); ++i)
        if (!taken_[i]) free.push_back(i);
      MatchAll(OpenPads(), free);
      break;
    }
    case BondPlan::Names:
      MatchNames();
      break;
    case BondPlan::Table:
      TakeTable();
      break;
    case BondPlan::None:
      break;
  }
  return Result();
}

}  // namespace

glm::dvec2 NormalOfSide(char side) {
  switch (side) {
    case 'L':
      return {-1.0, 0.0};
    case 'R':
      return {1.0, 0.0};
    case 'T':
      return {0.0, 1.0};
    default:
      return {0.0, -1.0};
  }
}

glm::dvec2 LandingOn(const Lead& lead, const std::optional<double>& land) {
  constexpr double kUsual = 0.2;
  constexpr double kSlack = 1e-9;
  const glm::dvec2 along = lead.Outer - lead.Inner;
  const double length = glm::length(along);
  if (length == 0.0) return lead.Inner;
  const double distance = land.value_or(std::min(length / 2.0, kUsual));
  if (distance > length + kSlack)
    throw ArgumentError("land", "the distance is longer than lead " + model::Quoted(lead.Label()),
                        "give a smaller one");
  return lead.Inner + along * (distance / length);
}

std::optional<glm::dvec2> LandingOnPaddle(const DiePad& pad, const Die& die, const Paddle& paddle) {
  constexpr double kNearest = 1e-3;
  const glm::dvec2 out = NormalOfSide(pad.Side);
  const double toDie = glm::dot(glm::abs(out), die.Size / 2.0) - glm::dot(out, pad.Middle);
  // From the pad to where the ray leaves the paddle, in the paddle's own axes.
  const glm::dvec2 from = Turned(pad.Middle - paddle.Middle, -paddle.Degrees);
  const glm::dvec2 along = Turned(out, -paddle.Degrees);
  double toEdge = std::numeric_limits<double>::infinity();
  for (int axis = 0; axis < 2; ++axis) {
    const double half = paddle.Size[axis] / 2.0;
    if (std::fabs(along[axis]) < 1e-12) {
      if (std::fabs(from[axis]) > half) return std::nullopt;
      continue;
    }
    toEdge = std::min(toEdge, (std::copysign(half, along[axis]) - from[axis]) / along[axis]);
  }
  const double edge = std::max(toDie, 0.0);
  if (toEdge - edge < kNearest) return std::nullopt;
  return pad.Middle + out * (edge + std::min((toEdge - edge) / 2.0, 2.0 * die.Height));
}

Assignment Assigned(const Die& die, const LeadFrame& frame, const BondRequest& request) {
  return Assigner(die, frame, request).Run();
}

}  // namespace importer
