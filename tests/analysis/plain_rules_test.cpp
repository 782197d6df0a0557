#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "analysis/nets.h"
#include "analysis/rules_check.h"
#include "analysis/segment_distance.h"
#include "model/text.h"
#include "tests/analysis/measured_package.h"
#include "tests/analysis/plain_rectangle.h"
#include "tests/samples.h"
#include "tests/temporary_folder.h"

namespace analysis {
namespace {

// The same rules again, in the plainest way: compare everything with everything, with other formulas.

/// Values by "rule line other-line".
using Values = std::map<std::string, double>;

struct PlainThing {
  std::size_t Line;
  std::string Name, Edge;
  bool Stacked;
  Rectangle At;
  int Wires = 0;  ///< wires that end on it, for a lead
};

/// In file units and degrees. Lengths of wires and distances to the die share one limit, as do all gaps; a
/// lead's length has twice the limit of all other sizes.
struct Limits {
  double Length, Gap, Pitch, Size, Height, Degrees;
};

class PlainRules {
 public:
  PlainRules(const Measured& measured, const NetRule& nets) : m_(measured), nets_(nets) {
    const double pi = std::acos(-1.0);
    const auto add = [&](const model::Table<model::BondRec>& bonds, model::RecordTable table) {
      const bool stacked = table == model::RecordTable::SDBonds;
      const double s = m_.Package.UnitScale;
      for (std::size_t k = 0; k < bonds.Count(); ++k) {
        const model::BondRec& bond = bonds[k];
        const double turn = stacked ? -m_.Package.SDRotation * pi / 180.0 : 0.0;
        const bool round = bond.DieShape == "ROUND";
        pads_.push_back({m_.Lines.Of({table, k, model::BondPart::DiePad}),
                         bond.Name,
                         bond.DieSide,
                         stacked,
                         {bond.DieX * s, bond.DieY * s, turn, bond.DieSizeX * s,
                          (round ? bond.DieSizeX : bond.DieSizeY) * s}});
        if (bond.SubX == 0.0F && bond.SubY == 0.0F) continue;
        const double base = bond.DieSide == "L" || bond.DieSide == "R" ? 0.0 : 90.0;
        const bool square = model::EqualsUpper(bond.SubShape, "RECTANGLE");
        leads_.push_back(
            {m_.Lines.Of({table, k, model::BondPart::SubstratePad}),
             bond.Name,
             bond.DieSide,
             stacked,
             {bond.SubX * s, bond.SubY * s, (base - bond.SubAngle) * pi / 180.0,
              square ? bond.SubSizeX * s : bond.SubSizeX * s / 2 + bond.SubSizeY * s, bond.SubSizeY * s},
             WiresOf({table, k})});
      }
    };
    add(m_.Package.Bonds, model::RecordTable::Bonds);
    add(m_.Package.SDBonds, model::RecordTable::SDBonds);
  }

  Values Run(const Limits& limits) {
    limits_ = limits;
    for (const WireLoop& loop : m_.Loops) Wire(loop);
    WirePairs();
    Pads();
    Leads();
    return found_;
  }

 private:
  void Add(const char* rule, std::size_t line, std::size_t other, double value) {
    found_[std::string(rule) + " " + std::to_string(line) + " " + std::to_string(other)] = value;
  }
  int WiresOf(const model::RecordPlace& bond) const {
    return static_cast<int>(std::count_if(m_.Loops.begin(), m_.Loops.end(), [&](const WireLoop& loop) {
      return loop.Place.Table == bond.Table && loop.Place.Number == bond.Number;
    }));
  }
  void AddPair(const char* rule, std::size_t a, std::size_t b, double value) {
    Add(rule, std::max(a, b), std::min(a, b), value);
  }

  void Above(const char* rule, std::size_t line, double value, double limit) {
    if (value > limit) Add(rule, line, 0, value);
  }
  void Below(const char* rule, std::size_t line, double value, double limit) {
    if (value < limit) Add(rule, line, 0, value);
  }

  void Wire(const WireLoop& loop) {
    const std::size_t line = m_.Lines.Of(loop.Place);
    const auto& points = loop.Points;
    double along = 0.0, top = points[0].z;
    for (std::size_t k = 1; k < points.size(); ++k) {
      along += std::hypot(points[k].x - points[k - 1].x, points[k].y - points[k - 1].y,
                          points[k].z - points[k - 1].z);
      top = std::max(top, points[k].z);
    }
    const double x = points[6].x - points[0].x, y = points[6].y - points[0].y;
    Above("max-length", line, along, limits_.Length + 1e-5);
    Below("min-length", line, std::hypot(x, y), limits_.Length - 1e-5);
    Above("max-loop-height", line, top - points[0].z, limits_.Height + 1e-5);
    Above("max-angle", line, AngleOf(loop, x, y), limits_.Degrees + 1e-3);
  }

  /// The angle between the wire and the normal of its pad's edge, rounded to ten-thousandths of a degree.
  double AngleOf(const WireLoop& loop, double x, double y) const {
    // Of the pads with a stitch's name the last one counts.
    std::string edge;
    for (const PlainThing& pad : pads_)
      if (pad.Name == loop.Pads[0] && (loop.Place.Table == model::RecordTable::Stitches ||
                                       pad.Stacked == (loop.Place.Table == model::RecordTable::SDBonds)))
        edge = pad.Edge;
    const double out = edge == "R" ? 0.0 : edge == "T" ? 90.0 : edge == "L" ? 180.0 : -90.0;
    const double turn = std::fabs(std::remainder(std::atan2(y, x) * 180.0 / std::acos(-1.0) - out, 360.0));
    return std::round(turn * 1e4) / 1e4;
  }

  bool Compared(const WireLoop& a, const WireLoop& b) const {
    if (NetOf(nets_, a.Name) == NetOf(nets_, b.Name)) return false;
    for (const std::string& pad : a.Pads)
      if (pad == b.Pads[0] || pad == b.Pads[1]) return false;
    for (const glm::dvec3& end : {a.Points[0], a.Points[6]})
      if (end == b.Points[0] || end == b.Points[6]) return false;
    return true;
  }

  void WirePairs() {
    for (std::size_t i = 0; i < m_.Loops.size(); ++i)
      for (std::size_t j = 0; j < i; ++j) {
        const WireLoop& a = m_.Loops[i];
        const WireLoop& b = m_.Loops[j];
        if (!Compared(a, b)) continue;
        double least = HUGE_VAL;
        for (std::size_t p = 0; p < 6; ++p)
          for (std::size_t q = 0; q < 6; ++q)
            least = std::min(
                least,
                NearestPoints({a.Points[p], a.Points[p + 1]}, {b.Points[q], b.Points[q + 1]}).Distance);
        const std::size_t first = m_.Lines.Of(a.Place), second = m_.Lines.Of(b.Place);
        if (least - kDiameter < limits_.Gap - 1e-5) AddPair("wire-gap", first, second, least - kDiameter);
        if (Crosses(a, b)) AddPair("no-crossing", first, second, 0.0);
      }
  }

  static bool Crosses(const WireLoop& a, const WireLoop& b) {
    const auto flat = [](const glm::dvec3& p) { return glm::dvec3(p.x, p.y, 0.0); };
    return NearestPoints({flat(a.Points[0]), flat(a.Points[6])}, {flat(b.Points[0]), flat(b.Points[6])})
               .Distance <= 1e-5;
  }

  void Pads() {
    const double gap = limits_.Gap - 1e-5;
    for (std::size_t i = 0; i < pads_.size(); ++i) {
      const Rectangle& at = pads_[i].At;
      const Rectangle die = pads_[i].Stacked ? Stacked() : Base();
      double edge = HUGE_VAL;
      for (const auto& [x, y] : CornersOf(at)) {
        const auto [u, v] = Inside(die, x, y);
        edge = std::min({edge, die.Length / 2 - std::fabs(u), die.Width / 2 - std::fabs(v)});
      }
      Below("pad-to-edge", pads_[i].Line, edge, gap);
      Below("pad-size", pads_[i].Line, std::min(at.Length, at.Width), limits_.Size - 1e-5);
      for (std::size_t j = 0; j < i; ++j) {
        if (pads_[i].Stacked != pads_[j].Stacked || pads_[i].Edge != pads_[j].Edge) continue;
        const double apart = std::hypot(at.X - pads_[j].At.X, at.Y - pads_[j].At.Y);
        if (apart < limits_.Pitch - 1e-5) AddPair("pad-pitch", pads_[i].Line, pads_[j].Line, apart);
        const double room = GapBetween(at, pads_[j].At, gap);
        if (room < gap) AddPair("pad-gap", pads_[i].Line, pads_[j].Line, room);
      }
    }
  }

  /// Records with the same place, size and angle are one pad, named after the first.
  std::vector<PlainThing> Distinct() const {
    std::vector<PlainThing> distinct;
    for (const PlainThing& lead : leads_) {
      const auto same = std::find_if(distinct.begin(), distinct.end(), [&](const PlainThing& other) {
        return other.At.X == lead.At.X && other.At.Y == lead.At.Y && other.At.Angle == lead.At.Angle &&
               other.At.Length == lead.At.Length && other.At.Width == lead.At.Width;
      });
      if (same == distinct.end()) {
        distinct.push_back(lead);
      } else {
        same->Line = std::min(same->Line, lead.Line);
        same->Wires += lead.Wires;
      }
    }
    return distinct;
  }

  void Leads() {
    const std::vector<PlainThing> distinct = Distinct();
    const double gap = limits_.Gap - 1e-5;
    for (std::size_t i = 0; i < distinct.size(); ++i) {
      const Rectangle& at = distinct[i].At;
      Below("die-to-lead", distinct[i].Line, GapBetween(at, Base(), limits_.Length), limits_.Length - 1e-5);
      Below("lead-width", distinct[i].Line, std::min(at.Length, at.Width), limits_.Size - 1e-5);
      Below("lead-length", distinct[i].Line, std::max(at.Length, at.Width), 2.0 * limits_.Size - 1e-5);
      Above("max-wires", distinct[i].Line, distinct[i].Wires, 1.0);
      for (std::size_t j = 0; j < i; ++j) {
        const double room = GapBetween(at, distinct[j].At, gap);
        if (room < gap) AddPair("lead-gap", distinct[i].Line, distinct[j].Line, room);
      }
    }
  }

  Rectangle Base() const {
    const double s = m_.Package.UnitScale;
    return {0, 0, 0, m_.Package.CompW * s, m_.Package.CompL * s};
  }
  Rectangle Stacked() const {
    const double s = m_.Package.UnitScale;
    return {m_.Package.SDXOffset * s, -m_.Package.SDYOffset * s,
            -m_.Package.SDRotation * std::acos(-1.0) / 180.0, m_.Package.SDCompW * s, m_.Package.SDCompL * s};
  }

  const Measured& m_;
  const NetRule& nets_;
  Limits limits_{};
  std::vector<PlainThing> pads_, leads_;
  Values found_;
};

Values ValuesOf(const RuleSet& set, const std::vector<RuleRemark>& remarks) {
  Values values;
  for (const RuleRemark& remark : remarks)
    values[std::string(KindOf(set.Rules[remark.Rule].Name).Word) + " " + std::to_string(remark.Line) + " " +
           std::to_string(remark.OtherLine)] = remark.Value.value_or(0.0);
  return values;
}

void ExpectTheSame(const Measured& measured, double unit, const NetRule& nets, const std::string& what) {
  const Limits limits{2.0 * unit, 0.06 * unit, 0.15 * unit, 0.12 * unit, 0.35 * unit, 30.0};
  const auto text = [](const char* rule, double value, const char* after = " mm\n") {
    return std::string(rule) + " " + std::to_string(value) + after;
  };
  // All in file units, which count as millimetres here.
  const std::string rules =
      text("max-length", limits.Length) + text("min-length", limits.Length, " mm plan\n") +
      text("max-angle", limits.Degrees, " deg\n") + "no-crossing\n" + text("wire-gap", limits.Gap) +
      text("max-loop-height", limits.Height) + text("die-to-lead", limits.Length) +
      text("lead-width", limits.Size) + text("lead-length", 2.0 * limits.Size) +
      text("lead-gap", limits.Gap) + text("pad-size", limits.Size) + text("pad-gap", limits.Gap) +
      text("pad-pitch", limits.Pitch) + text("pad-to-edge", limits.Gap) + "max-wires 1\n";
  const RuleSet set = ReadRules("rules", rules);
  const RulesReport report =
      CheckRules(set, {measured.Package, measured.Lines, measured.Loops, nets, 1.0, kDiameter});
  const Values found = ValuesOf(set, report.Remarks);
  ASSERT_EQ(set.Rules.size(), RuleKinds().size());
  const Values wanted = PlainRules(measured, nets).Run(limits);
  EXPECT_EQ(found.size(), report.Remarks.size()) << what << ": a remark came twice";
  for (const auto& [key, value] : wanted) {
    ASSERT_TRUE(found.contains(key)) << key << " is missing in " << what;
    EXPECT_NEAR(found.at(key), value, 1e-6) << key << " in " << what;
  }
  EXPECT_EQ(found.size(), wanted.size()) << what;
}

TEST(PlainRules, FindTheSameAsAPlainEvaluationOnEverySample) {
  NetRule nets;
  nets.Pattern = std::regex("^(V..)_");
  // Their units are mm, um (cob32) and mil.
  for (const std::string name : kSamples)
    ExpectTheSame(Measured(SamplePath(name)),
                  name == "cob32"                                        ? 1000.0
                  : name == "stacked-ram" || name == "flipchip-bigblade" ? 40.0
                                                                         : 1.0,
                  nets, name);
}

std::string RandomPackage(std::mt19937& random) {
  std::uniform_real_distribution<double> place(-2.0, 2.0), far(-5.0, 5.0), size(0.05, 0.4),
      angle(-90.0, 90.0);
  std::uniform_int_distribution<int> count(1, 25), edge(0, 3), shape(0, 1), tier(1, 4);
  std::ostringstream text;
  text << "TECHNOLOGY WIRE_BOND\nSD_COMPW 1.5\nSD_COMPL 1\nSD_COMPZ 0.3\nSD_ROTATION " << angle(random)
       << "\nSD_XOFFSET 0.2\nSD_YOFFSET -0.3\nCOMPL 4.1\nCOMPW 4.2\nCOMPZ 0.4\n";
  const int wires = count(random);
  for (int k = 0; k < wires; ++k) {
    const bool stacked = k % 4 == 3;
    const double x = place(random) / (stacked ? 4.0 : 1.0), y = place(random) / (stacked ? 4.0 : 1.0);
    // Sometimes repeats the lead of another wire.
    static double endX = 0.0, endY = 0.0, turn = 0.0, length = 0.0, width = 0.0;
    if (k % 5 != 4)
      endX = far(random), endY = far(random), turn = angle(random), length = size(random),
      width = size(random);
    text << (stacked ? "SD_CBP" : "CBP") << " N" << k % 20 << '_' << k << ' ' << x << ' ' << y << " 0 "
         << size(random) << ' ' << size(random) << " 0 "
         << "LRTB"[edge(random)] << (shape(random) ? " ROUND\n" : " RECTANGLE\n");
    text << "SBP N" << k % 20 << '_' << k << ' ' << endX << ' ' << endY << " 0 " << length << ' ' << width
         << ' ' << turn << (shape(random) ? " RECTANGLE 1 " : " OBLONG 1 ") << tier(random) << '\n';
    text << "WB N" << k % 20 << '_' << k << ' ' << x << ' ' << y << " L " << endX + 0.01 * k << ' ' << endY
         << " 0.4 0\n";
  }
  return text.str();
}

TEST(PlainRules, FindTheSameAsAPlainEvaluationOnRandomPackages) {
  std::mt19937 random(13);
  NetRule nets;
  nets.Pattern = std::regex("^(N.*)_");
  for (int k = 0; k < 200; ++k) {
    const TemporaryFolder folder;
    const std::string text = RandomPackage(random);
    ExpectTheSame(Measured(PutFile(folder / "board.yax", text)), 1.0, nets,
                  "package " + std::to_string(k) + "\n" + text);
    if (testing::Test::HasFailure()) break;
  }
}

}  // namespace
}  // namespace analysis
