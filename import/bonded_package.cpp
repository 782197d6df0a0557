#include "import/bonded_package.h"

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>
#include <unordered_set>

#include "import/crossings.h"
#include "import/names.h"
#include "import/terminals.h"
#include "model/input_error.h"
#include "model/numbers.h"
#include "model/reader/package_writer.h"

namespace importer {

namespace {

std::string Rounded(double value, int decimals) {
  return model::FixedText(static_cast<float>(value), decimals);
}

class Maker {
 public:
  Maker(const BondedChip& chip, double unit, std::string unitName)
      : chip_(chip), unit_(unit), unitName_(std::move(unitName)) {}

  Bonded Run();

 private:
  float Length(double millimetres) const {
    return static_cast<float>(millimetres / unit_ / double(made_.Package.UnitScale));
  }
  void MakeHeader();
  void AddPad(std::size_t number);
  void AddWire(model::BondRec& bond, const Wire& wire);
  void AddLead(model::BondRec& bond, const Lead& lead) const;
  void AddPaddle();
  void AddBand(const glm::dvec2& from, const glm::dvec2& to, double width);
  const char* NetTypeOf(const DiePad& pad) const;
  void Judge();
  void CheckSizes();
  std::string Summary() const;
  std::vector<std::string> NamesOf(const std::vector<std::size_t>& leads) const;

  const BondedChip& chip_;
  double unit_;
  std::string unitName_;
  Bonded made_;
  std::unordered_set<std::string> names_;
  std::size_t nextWire_ = 0;
  std::vector<PlanWire> plan_;
  std::vector<std::string> planNames_;
  std::vector<std::string> leftOut_;
  std::vector<bool> met_;          ///< leads that a wire meets
  std::vector<std::size_t> free_;  ///< all other leads
  double longest_ = 0.0, widest_ = 0.0;
  std::string longestName_;
  std::size_t crossings_ = 0;
};

void Maker::MakeHeader() {
  model::Package& package = made_.Package;
  const glm::dvec2 size = chip_.Chip.Size / unit_;
  package.Technology = "WIRE_BOND";
  package.UnitScale = model::reader::UnitScaleOf(static_cast<float>(size.x), static_cast<float>(size.y));
  package.CompW = Length(chip_.Chip.Size.x);
  package.CompL = Length(chip_.Chip.Size.y);
  package.CompZ = Length(chip_.Chip.Height);
}

/// Adds the pad: a bond for each of its wires, or one bond without a wire.
void Maker::AddPad(std::size_t number) {
  const DiePad& pad = chip_.Chip.Pads[number];
  const std::vector<Wire>& wires = chip_.Bonds.Wires;
  bool first = true;
  do {
    model::BondRec& bond = made_.Package.Bonds.Spare();
    bond.Name = first ? pad.Name : FreeName(pad.Name, names_);
    names_.insert(bond.Name);
    bond.DieX = Length(pad.Middle.x);
    bond.DieY = Length(pad.Middle.y);
    bond.DieZ = made_.Package.CompZ;
    bond.DieSizeX = Length(pad.Size.x);
    bond.DieSizeY = Length(pad.Size.y);
    bond.DieSide = std::string(1, pad.Side);
    bond.DieShape = "RECTANGLE";
    if (nextWire_ < wires.size() && wires[nextWire_].Pad == number) AddWire(bond, wires[nextWire_++]);
    made_.Package.Bonds.Grow();
    first = false;
  } while (nextWire_ < wires.size() && wires[nextWire_].Pad == number);
}

void Maker::AddWire(model::BondRec& bond, const Wire& wire) {
  const DiePad& pad = chip_.Chip.Pads[wire.Pad];
  const glm::dvec2 run = wire.End - pad.Middle;
  // The viewer shows no wire that starts at the origin, and cannot draw one without length.
  const bool nowhere = (bond.DieX == 0.0F && bond.DieY == 0.0F) ||
                       (Length(wire.End.x) == bond.DieX && Length(wire.End.y) == bond.DieY);
  if (nowhere) {
    leftOut_.push_back(bond.Name);
    return;
  }
  if (wire.Lead) {
    AddLead(bond, chip_.Frame.Leads[*wire.Lead]);
    met_[*wire.Lead] = true;
  }
  bond.Lead = wire.Lead ? chip_.Frame.Leads[*wire.Lead].Label() : "PADDLE";
  bond.WireStartX = bond.DieX;
  bond.WireStartY = bond.DieY;
  bond.WireStartZ = made_.Package.CompZ;
  bond.WireEndX = Length(wire.End.x);
  bond.WireEndY = Length(wire.End.y);
  model::WireNameRec& entry = made_.Package.WireNames.Spare();
  entry.Wire = {model::RecordTable::Bonds, made_.Package.Bonds.UpperBound(), model::BondPart::Wire};
  entry.Name = bond.Name;
  entry.NetType = NetTypeOf(pad);
  entry.Tier = bond.Tier;
  made_.Package.WireNames.Grow();
  plan_.push_back({pad.Middle, wire.End});
  planNames_.push_back(bond.Name);
  const double length = glm::length(run);
  if (length > longest_) longestName_ = bond.Name;
  longest_ = std::max(longest_, length);
  const double straight = glm::clamp(glm::dot(run, NormalOfSide(pad.Side)) / length, -1.0, 1.0);
  widest_ = std::max(widest_, glm::degrees(std::acos(straight)));
}

/// The substrate pad. Its angle counts clockwise, from x for pads on the left and right edges, else from y.
void Maker::AddLead(model::BondRec& bond, const Lead& lead) const {
  constexpr double kPoint = 0.025;
  const glm::dvec2 along = lead.Outer - lead.Inner;
  const double length = glm::length(along);
  const bool point = length == 0.0 || lead.Width == 0.0;
  const double degrees = point ? 0.0 : glm::degrees(std::atan2(along.y, along.x));
  const bool fromX = bond.DieSide == "L" || bond.DieSide == "R";
  const double angle = LineDegrees(fromX || point ? -degrees : 90.0 - degrees);
  bond.SubX = Length((lead.Inner.x + lead.Outer.x) / 2.0);
  bond.SubY = Length((lead.Inner.y + lead.Outer.y) / 2.0);
  bond.SubSizeX = Length(point ? kPoint : length);
  bond.SubSizeY = Length(point ? kPoint : lead.Width);
  bond.SubAngle = static_cast<float>(angle > 90.0 ? angle - 180.0 : angle);
  bond.SubShape = "RECTANGLE";
  bond.Tier = lead.Tier;
}

/// Adds a band along the longer side. A turned square takes two, since a band without length has no
/// direction.
void Maker::AddPaddle() {
  if (!chip_.Frame.DiePaddle) return;
  const Paddle& paddle = *chip_.Frame.DiePaddle;
  const bool alongX = paddle.Size.x >= paddle.Size.y;
  const double longer = alongX ? paddle.Size.x : paddle.Size.y;
  const double shorter = alongX ? paddle.Size.y : paddle.Size.x;
  const glm::dvec2 along = Turned(alongX ? glm::dvec2(1.0, 0.0) : glm::dvec2(0.0, 1.0), paddle.Degrees);
  const double quarters = paddle.Degrees / 90.0;
  const bool upright = std::fabs(quarters - std::round(quarters)) < 1e-9;
  if (upright || longer > shorter * 1.5) {
    const glm::dvec2 half = along * ((longer - shorter) / 2.0);
    return AddBand(paddle.Middle - half, paddle.Middle + half, shorter);
  }
  const glm::dvec2 across(-along.y, along.x);
  for (const double side : {-1.0, 1.0}) {
    const glm::dvec2 middle = paddle.Middle + across * (side * shorter / 4.0);
    const glm::dvec2 half = along * ((longer - shorter / 2.0) / 2.0);
    AddBand(middle - half, middle + half, shorter / 2.0);
  }
}

void Maker::AddBand(const glm::dvec2& from, const glm::dvec2& to, double width) {
  model::DapRec& band = made_.Package.Daps.Spare();
  band.Name = "PADDLE";
  // In bands y points down.
  band.D1 = Length(from.x);
  band.D2 = Length(-from.y);
  band.D3 = Length(to.x);
  band.D4 = Length(-to.y);
  band.D5 = Length(width);
  made_.Package.Daps.Grow();
}

const char* Maker::NetTypeOf(const DiePad& pad) const {
  if (pad.Type == NetType::Ground) return "GROUND";
  if (pad.Type == NetType::Power) return "POWER";
  if (Matches(pad.Pin, chip_.Nets.Ground)) return "GROUND";
  return Matches(pad.Pin, chip_.Nets.Power) ? "POWER" : "SIGNAL";
}

std::vector<std::string> Maker::NamesOf(const std::vector<std::size_t>& leads) const {
  std::vector<std::string> names;
  for (const std::size_t lead : leads) names.push_back(chip_.Frame.Leads[lead].Label());
  return names;
}

/// Equal openings too small for any wire are probably marks at the pads' places.
void Maker::CheckSizes() {
  constexpr double kSmallest = 0.04;
  constexpr double kAlike = 1e-6;
  if (chip_.Chip.OpeningsGiven) return;
  const std::vector<DiePad>& pads = chip_.Chip.Pads;
  const glm::dvec2 size = pads.front().Size;
  for (const DiePad& pad : pads)
    if (glm::length(glm::abs(pad.Size - size)) > kAlike) return;
  if (std::max(size.x, size.y) >= kSmallest - kAlike) return;
  const std::string all = pads.size() == 1 ? "the pad is " : "all pads are ";
  made_.Findings.push_back(all + Rounded(size.x * 1000.0, 1) + " x " + Rounded(size.y * 1000.0, 1) +
                           " um, which looks like marks, not openings; give --pad-size");
}

void Maker::Judge() {
  if (!leftOut_.empty())
    made_.Findings.push_back(Counted(leftOut_.size(), "wire is", "wires are") +
                             " left out (no length, or a start at the die's middle): " + Listed(leftOut_));
  std::vector<std::string> over;
  for (const std::size_t pad : chip_.Bonds.PadsWithoutLead) over.push_back(chip_.Chip.Pads[pad].Name);
  if (!over.empty())
    made_.Findings.push_back(Counted(over.size(), "pad is", "pads are") + " not bonded to a lead: " +
                             Listed(over) + "; bond with --bond PAD=LEAD, or leave free with --bond PAD=");
  std::vector<std::size_t> netted;
  for (const std::size_t lead : free_) {
    const bool asked =
        std::binary_search(chip_.Bonds.UnusedLeads.begin(), chip_.Bonds.UnusedLeads.end(), lead);
    if (!asked && chip_.Frame.Leads[lead].HasNet()) netted.push_back(lead);
  }
  if (!netted.empty() && chip_.Bonds.ReportsFree)
    made_.Findings.push_back(Counted(netted.size(), "lead with a net stays", "leads with a net stay") +
                             " free: " + Listed(NamesOf(netted)) + "; name " +
                             (netted.size() == 1 ? "it" : "them") + " in --unused if that is meant");
  const auto crossings = Crossings(plan_);
  crossings_ = crossings.size();
  std::vector<std::string> pairs;
  for (const auto& [a, b] : crossings) pairs.push_back(planNames_[a] + " and " + planNames_[b]);
  if (!pairs.empty())
    made_.Findings.push_back(Counted(pairs.size(), "pair of wires crosses: ", "pairs of wires cross: ") +
                             Listed(pairs) + "; try another --rotate, --bonds or --bond");
  CheckSizes();
}

std::string Maker::Summary() const {
  const std::size_t wires = plan_.size();
  std::string text = Counted(chip_.Chip.Pads.size(), "pad", "pads") + ", " +
                     Counted(chip_.Frame.Leads.size(), "lead", "leads") + ", " +
                     Counted(wires, "wire", "wires");
  text += "; leads free: ";
  const std::vector<std::string> free = NamesOf(free_);
  for (std::size_t i = 0; i < free.size(); ++i) text += (i == 0 ? "" : ", ") + free[i];
  if (free.empty()) text += "none";
  text += "; " + Counted(crossings_, "crossing", "crossings");
  if (wires == 0) return text;
  const int decimals = unit_ < 0.01 ? 0 : 2;
  return text + "; longest " + Rounded(longest_ / unit_, decimals) + " " + unitName_ + " (" + longestName_ +
         "), widest angle " + Rounded(widest_, 1) + " deg";
}

Bonded Maker::Run() {
  const std::size_t bonds = chip_.Chip.Pads.size() + chip_.Bonds.Wires.size();
  if (chip_.Chip.Pads.size() > kMostPads || bonds > 2 * kMostPads)
    throw model::InputError({chip_.Chip.File}, "it has more than " + std::to_string(kMostPads) + " pads",
                            "choose some of them with --pads");
  MakeHeader();
  for (const DiePad& pad : chip_.Chip.Pads) names_.insert(pad.Name);
  met_.resize(chip_.Frame.Leads.size());
  for (std::size_t i = 0; i < chip_.Chip.Pads.size(); ++i) AddPad(i);
  for (std::size_t i = 0; i < met_.size(); ++i)
    if (!met_[i]) free_.push_back(i);
  AddPaddle();
  Judge();
  made_.Summary = Summary();
  return std::move(made_);
}

}  // namespace

NetPatterns UsualNets() {
  constexpr auto kRules = std::regex::ECMAScript | std::regex::icase;
  return {std::regex("^([adps]|io|core)?(vdd|vcc|vpwr)", kRules),
          std::regex("^([adps]|io|core)?(vss|gnd|vgnd|ground)", kRules)};
}

Bonded BondedPackage(const BondedChip& chip, double unit, const std::string& unitName) {
  return Maker(chip, unit, unitName).Run();
}

}  // namespace importer
