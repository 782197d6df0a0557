#include "analysis/rules_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "analysis/clearance.h"
#include "analysis/lengths.h"
#include "analysis/segment_distance.h"
#include "model/side.h"
#include "model/text.h"
#include "tests/samples.h"
#include "tests/temporary_folder.h"
#include "yax/options/loops.h"
#include "yax/options/package_options.h"

namespace analysis {
namespace {

/// A package with all that rules measure.
struct Measured {
  RecordLines Lines;
  model::Package Package;
  std::vector<WireLoop> Loops;

  explicit Measured(const std::string& path) : Package(yax::LoadPackage({path}, &Lines)) {
    yax::LoopOptions options;
    options.DieHeight = true;
    const model::WireBondSettings settings = yax::SettingsOf(options, Package);
    Loops = WireLoopsOf({Package, settings, {}, nullptr});
  }
};

constexpr double kDiameter = 0.0254;

std::vector<RuleRemark> Check(const std::string& rules, const Measured& measured, const NetRule& nets = {},
                              double millimetres = 1.0) {
  return CheckRules(ReadRules("rules", rules),
                    {measured.Package, measured.Lines, measured.Loops, nets, millimetres, kDiameter})
      .Remarks;
}

/// "line value" of each remark, "line other-line value" of a pair; values in thousandths.
std::vector<std::string> Texts(const std::vector<RuleRemark>& remarks) {
  std::vector<std::string> texts;
  for (const RuleRemark& remark : remarks)
    texts.push_back(std::to_string(remark.Line) +
                    (remark.Other ? " " + std::to_string(remark.OtherLine) : "") +
                    (remark.Value ? " " + std::to_string(std::lround(*remark.Value * 1e3)) : ""));
  return texts;
}
using Found = std::vector<std::string>;

// A die of 4 x 4 x 0.5 with pads of 0.1 x 0.2 on its right edge. A and B run 3 to the right, C crosses both
// and lands on B's lead. Lines 5 to 13; the loops rise 0.5, so a wire of 3 in plan has a loop of 0.2 + ...
// more than 3.
const std::string kPackage =
    "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 4\nCOMPZ 0.5\n"
    "CBP A 1.9 0.5 0 0.1 0.2 0 R RECTANGLE\nCBP B 1.9 0.25 0 0.1 0.2 0 R RECTANGLE\n"
    "CBP C 1.95 -0.5 0 0.1 0.2 0 R RECTANGLE\n"
    "SBP A 4.9 0.5 0 1 0.2 0 RECTANGLE 1 1\nSBP B 4.9 0.25 0 0.5 0.2 0 RECTANGLE 1 2\n"
    "SBP C 4.9 0.25 0 0.5 0.2 0 RECTANGLE 1 2\n"
    "WB A 1.9 0.5 L1 4.9 0.5 0.5 0\nWB B 1.9 0.25 L2 4.9 0.25 0.5 0\nWB C 1.95 -0.5 L2 4.9 0.75 0.5 0\n";

TEST(Rules, ReportValuesBeyondTheirLimitWithTheLinesOfTheRecords) {
  const TemporaryFolder folder;
  PutFile(folder / "board.yax.vu", "A POWER\nB GROUND\nC signal\n");
  const Measured measured(PutFile(folder / "board.yax", kPackage));
  const std::pair<const char*, Found> rows[] = {
      // sqrt(2.95^2 + 1.25^2) = 3.2039.
      {"max-length 3 mm plan", {"13 3204"}},
      {"min-length 3.1 mm plan", {"11 3000", "12 3000"}},
      {"max-length 3000 um plan net POWER", {}},
      {"max-length 118 mil plan tier 1", {"11 3000"}},
      {"max-length 6.1 die-height plan", {"13 3204"}},
      // atan(1.25 / 2.95) = 22.964 degrees.
      {"max-angle 22 deg", {"13 22964"}},
      // C runs through y = 0.25 and 0.5 between the pads and the leads.
      {"no-crossing", {"13 11", "13 12"}},
      {"no-crossing tier 1", {"13 11"}},
      {"max-loop-height 0.4 mm", {"11 500", "12 500", "13 500"}},
      {"max-loop-height 0.5 mm", {}},
      // From x = 2 to 4.4 and 4.65. B and C share a pad, which is reported at its first record.
      {"die-to-lead 2.5 mm", {"8 2400"}},
      {"die-to-lead 3 mm", {"8 2400", "9 2650"}},
      {"lead-width 0.25 mm", {"8 200", "9 200"}},
      {"lead-width 0.25 mm net SIGNAL", {"9 200"}},
      {"lead-length 0.6 mm", {"9 500"}},
      {"lead-gap 0.1 mm", {"9 8 50"}},
      {"pad-size 0.2 mm", {"5 100", "6 100", "7 100"}},
      // Field 5 counts along x on the right edge, field 6 along y: 0.25 - 0.2 between A and B.
      {"pad-gap 0.1 mm", {"6 5 50"}},
      {"pad-pitch 0.3 mm", {"6 5 250"}},
      // A ends at 1.95, C at 2, on the edge.
      {"pad-to-edge 0.06 mm", {"5 50", "6 50", "7 0"}},
      {"max-wires 1", {"9 2000"}},
      {"max-wires 1 net SIGNAL", {}},
      {"max-wires 2", {}}};
  for (const auto& [rule, found] : rows) EXPECT_EQ(Texts(Check(rule, measured)), found) << rule;
}

TEST(Rules, ThatHaveNothingToMeasureAreNamed) {
  const TemporaryFolder folder;
  const Measured measured(PutFile(folder / "board.yax", kPackage));
  const RuleSet set =
      ReadRules("rules", "max-length 1 mm tier 7\nno-crossing\nmax-wires 9 net POWER\nwire-gap 0 mm tier 8");
  const NetRule none;
  const RulesReport report =
      CheckRules(set, {measured.Package, measured.Lines, measured.Loops, none, 1.0, kDiameter});
  EXPECT_EQ(report.Unmeasured, (std::vector<std::size_t>{0, 2, 3}));
}

// The same rules once more, as plainly as they can be put: every thing with every other, with other formulas.

/// By "rule line other-line".
using Values = std::map<std::string, double>;

struct Rectangle {
  double X, Y, Angle, Length, Width;  ///< the length runs along the angle
};

struct PlainThing {
  std::size_t Line;
  std::string Name, Edge;
  bool Stacked;
  Rectangle At;
};

std::vector<std::pair<double, double>> CornersOf(const Rectangle& r) {
  std::vector<std::pair<double, double>> corners;
  for (const auto& [u, v] : {std::pair(-1, -1), std::pair(1, -1), std::pair(1, 1), std::pair(-1, 1)}) {
    const double a = u * r.Length / 2, b = v * r.Width / 2;
    corners.push_back({r.X + a * std::cos(r.Angle) - b * std::sin(r.Angle),
                       r.Y + a * std::sin(r.Angle) + b * std::cos(r.Angle)});
  }
  return corners;
}

/// A place as the rectangle sees it: along and across, from its middle.
std::pair<double, double> Inside(const Rectangle& r, double x, double y) {
  const double dx = x - r.X, dy = y - r.Y;
  return {dx * std::cos(r.Angle) + dy * std::sin(r.Angle), -dx * std::sin(r.Angle) + dy * std::cos(r.Angle)};
}

/// By steps along all edges of one rectangle the distance to the other, refined around the nearest step.
double GapBetween(const Rectangle& a, const Rectangle& b, double enough) {
  // Circles around both are farther apart: no need to know better.
  const double apart = std::hypot(a.X - b.X, a.Y - b.Y) - std::hypot(a.Length, a.Width) / 2 -
                       std::hypot(b.Length, b.Width) / 2;
  if (apart > enough) return apart;
  const auto fromPoint = [](const Rectangle& r, double x, double y) {
    const auto [u, v] = Inside(r, x, y);
    return std::hypot(std::max(std::fabs(u) - r.Length / 2, 0.0), std::max(std::fabs(v) - r.Width / 2, 0.0));
  };
  double least = HUGE_VAL;
  for (const auto& [one, two] : {std::pair(a, b), std::pair(b, a)}) {
    const auto corners = CornersOf(one);
    for (std::size_t k = 0; k < 4; ++k) {
      // The distance to a convex shape falls and then rises along a line: close in on its least.
      double low = 0.0, high = 1.0;
      const auto at = [&](double t) {
        const auto& p = corners[k];
        const auto& q = corners[(k + 1) % 4];
        return fromPoint(two, p.first + t * (q.first - p.first), p.second + t * (q.second - p.second));
      };
      for (int step = 0; step < 100; ++step) {
        const double t = low + (high - low) / 3, u = high - (high - low) / 3;
        (at(t) <= at(u) ? high : low) = at(t) <= at(u) ? u : t;
      }
      least = std::min({least, at((low + high) / 2), at(0.0), at(1.0)});
    }
    if (fromPoint(two, one.X, one.Y) == 0.0) least = 0.0;
  }
  return least < 1e-9 ? 0.0 : least;
}

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
              square ? bond.SubSizeX * s : bond.SubSizeX * s / 2 + bond.SubSizeY * s, bond.SubSizeY * s}});
      }
    };
    add(m_.Package.Bonds, model::RecordTable::Bonds);
    add(m_.Package.SDBonds, model::RecordTable::SDBonds);
  }

  Values Run(double length, double gap, double pitch) {
    Wires(length);
    WirePairs(gap);
    Pads(gap, pitch);
    Leads(gap, length);
    return found_;
  }

 private:
  void Add(const char* rule, std::size_t line, std::size_t other, double value) {
    found_[std::string(rule) + " " + std::to_string(line) + " " + std::to_string(other)] = value;
  }
  void AddPair(const char* rule, std::size_t a, std::size_t b, double value) {
    Add(rule, std::max(a, b), std::min(a, b), value);
  }

  void Wires(double length) {
    for (const WireLoop& loop : m_.Loops) {
      double along = 0.0;
      for (std::size_t k = 1; k < loop.Points.size(); ++k)
        along += std::hypot(loop.Points[k].x - loop.Points[k - 1].x, loop.Points[k].y - loop.Points[k - 1].y,
                            loop.Points[k].z - loop.Points[k - 1].z);
      if (along > length + 1e-5) Add("max-length", m_.Lines.Of(loop.Place), 0, along);
      const double plan =
          std::hypot(loop.Points[6].x - loop.Points[0].x, loop.Points[6].y - loop.Points[0].y);
      if (plan < length - 1e-5) Add("min-length", m_.Lines.Of(loop.Place), 0, plan);
    }
  }

  bool Compared(const WireLoop& a, const WireLoop& b) const {
    if (NetOf(nets_, a.Name) == NetOf(nets_, b.Name)) return false;
    for (const std::string& pad : a.Pads)
      if (pad == b.Pads[0] || pad == b.Pads[1]) return false;
    for (const glm::dvec3& end : {a.Points[0], a.Points[6]})
      if (end == b.Points[0] || end == b.Points[6]) return false;
    return true;
  }

  void WirePairs(double gap) {
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
        if (least - kDiameter < gap - 1e-5) AddPair("wire-gap", first, second, least - kDiameter);
        if (Crosses(a, b)) AddPair("no-crossing", first, second, 0.0);
      }
  }

  static bool Crosses(const WireLoop& a, const WireLoop& b) {
    const auto flat = [](const glm::dvec3& p) { return glm::dvec3(p.x, p.y, 0.0); };
    return NearestPoints({flat(a.Points[0]), flat(a.Points[6])}, {flat(b.Points[0]), flat(b.Points[6])})
               .Distance <= 1e-5;
  }

  void Pads(double gap, double pitch) {
    for (std::size_t i = 0; i < pads_.size(); ++i) {
      const Rectangle die = pads_[i].Stacked ? Stacked() : Base();
      double edge = HUGE_VAL;
      for (const auto& [x, y] : CornersOf(pads_[i].At)) {
        const auto [u, v] = Inside(die, x, y);
        edge = std::min({edge, die.Length / 2 - std::fabs(u), die.Width / 2 - std::fabs(v)});
      }
      if (edge < gap - 1e-5) Add("pad-to-edge", pads_[i].Line, 0, edge);
      for (std::size_t j = 0; j < i; ++j) {
        if (pads_[i].Stacked != pads_[j].Stacked || pads_[i].Edge != pads_[j].Edge) continue;
        const double apart = std::hypot(pads_[i].At.X - pads_[j].At.X, pads_[i].At.Y - pads_[j].At.Y);
        if (apart < pitch - 1e-5) AddPair("pad-pitch", pads_[i].Line, pads_[j].Line, apart);
        const double room = GapBetween(pads_[i].At, pads_[j].At, gap);
        if (room < gap - 1e-5) AddPair("pad-gap", pads_[i].Line, pads_[j].Line, room);
      }
    }
  }

  void Leads(double gap, double length) {
    // Records with one place, size and angle are one pad.
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
      }
    }
    for (std::size_t i = 0; i < distinct.size(); ++i) {
      const double toDie = GapBetween(distinct[i].At, Base(), length);
      if (toDie < length - 1e-5) Add("die-to-lead", distinct[i].Line, 0, toDie);
      for (std::size_t j = 0; j < i; ++j) {
        const double room = GapBetween(distinct[i].At, distinct[j].At, gap);
        if (room < gap - 1e-5) AddPair("lead-gap", distinct[i].Line, distinct[j].Line, room);
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
  const auto text = [unit](const char* rule, double value) {
    return std::string(rule) + " " + std::to_string(value * unit) + " mm\n";
  };
  // All in file units, which count as millimetres here.
  const std::string rules =
      text("max-length", 2.0) +
      text("min-length", 2.0).replace(text("min-length", 2.0).size() - 1, 1, " plan\n") + "no-crossing\n" +
      text("wire-gap", 0.06) + text("die-to-lead", 2.0) + text("lead-gap", 0.06) + text("pad-gap", 0.06) +
      text("pad-pitch", 0.15) + text("pad-to-edge", 0.06);
  const RuleSet set = ReadRules("rules", rules);
  const RulesReport report =
      CheckRules(set, {measured.Package, measured.Lines, measured.Loops, nets, 1.0, kDiameter});
  const Values found = ValuesOf(set, report.Remarks);
  const Values wanted = PlainRules(measured, nets).Run(2.0 * unit, 0.06 * unit, 0.15 * unit);
  EXPECT_EQ(found.size(), report.Remarks.size()) << what << ": none twice";
  for (const auto& [key, value] : wanted) {
    ASSERT_TRUE(found.contains(key)) << key << " is missing in " << what;
    EXPECT_NEAR(found.at(key), value, 1e-6) << key << " in " << what;
  }
  EXPECT_EQ(found.size(), wanted.size()) << what;
}

TEST(Rules, FindTheSameAsAPlainEvaluationOnEverySample) {
  NetRule nets;
  nets.Pattern = std::regex("^(V..)_");
  for (const char* name : {"AAAc", "caravel-qfn64", "bga332", "lqfp100"})
    ExpectTheSame(Measured(SamplePath(name)), 1.0, nets, name);
  ExpectTheSame(Measured(SamplePath("stacked-ram")), 40.0, nets, "stacked-ram");
  ExpectTheSame(Measured(SamplePath("flipchip-bigblade")), 40.0, nets, "flipchip-bigblade");
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
    // Now and then a lead that another wire has, too.
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

TEST(Rules, FindTheSameAsAPlainEvaluationOnRandomPackages) {
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
