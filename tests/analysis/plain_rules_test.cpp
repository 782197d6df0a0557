#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <map>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "analysis/nets.h"
#include "analysis/rules_check.h"
#include "analysis/segment_distance.h"
#include "model/text.h"
#include "tests/pattern.h"
#include "tests/samples.h"
#include "tests/temporary_folder.h"
#include "yax/options/opened_package.h"

namespace analysis {
namespace {

// The rules of pads, leads and pairs again, in the plainest way: compare everything with everything, with
// other formulas.

constexpr char kRules[] =
    "max-angle 30 deg\nno-crossing\nwire-gap 0.06 mm\ndie-to-lead 2 mm\nlead-width 0.12 mm\n"
    "lead-length 0.24 mm\nlead-gap 0.06 mm\npad-size 0.12 mm\npad-gap 0.06 mm\npad-pitch 0.15 mm\n"
    "pad-to-edge 0.06 mm\nmax-wires 1\n";

constexpr double kDiameter = 0.0254;  ///< of all wires, file units

/// Values by "rule line other-line".
using Values = std::map<std::string, double>;

struct Rectangle {
  glm::dvec2 Middle;
  double Angle, Length, Width;  ///< the length runs along the angle
};

glm::dvec2 Turned(const glm::dvec2& v, double angle) {
  return {v.x * std::cos(angle) - v.y * std::sin(angle), v.x * std::sin(angle) + v.y * std::cos(angle)};
}

std::array<glm::dvec2, 4> CornersOf(const Rectangle& r) {
  const glm::dvec2 a = Turned({r.Length / 2, r.Width / 2}, r.Angle);
  const glm::dvec2 b = Turned({r.Length / 2, -r.Width / 2}, r.Angle);
  return {r.Middle + a, r.Middle + b, r.Middle - a, r.Middle - b};
}

/// How far a point lies within the nearest edge; below 0 outside.
double DepthOf(const Rectangle& r, const glm::dvec2& point) {
  const glm::dvec2 at = Turned(point - r.Middle, -r.Angle);
  return std::min(r.Length / 2 - std::fabs(at.x), r.Width / 2 - std::fabs(at.y));
}

/// The distance of the nearest edges, 0 where the rectangles overlap.
double GapBetween(const Rectangle& a, const Rectangle& b, double enough) {
  // Circles around both are farther apart: a more exact distance does not matter.
  const double apart = glm::distance(a.Middle, b.Middle) - std::hypot(a.Length, a.Width) / 2 -
                       std::hypot(b.Length, b.Width) / 2;
  if (apart > enough) return apart;
  if (DepthOf(a, b.Middle) > 0.0 || DepthOf(b, a.Middle) > 0.0) return 0.0;
  const auto edge = [](const std::array<glm::dvec2, 4>& corners, std::size_t k) {
    return Segment{{corners[k], 0.0}, {corners[(k + 1) % 4], 0.0}};
  };
  double least = HUGE_VAL;
  for (std::size_t k = 0; k < 16; ++k)
    least = std::min(least, NearestPoints(edge(CornersOf(a), k / 4), edge(CornersOf(b), k % 4)).Distance);
  return least < 1e-9 ? 0.0 : least;
}

struct PlainThing {
  std::size_t Line;
  std::string Name, Edge;
  bool Stacked;
  Rectangle At;
  int Wires = 0;  ///< wires that end on it, for a lead
};

class PlainRules {
 public:
  PlainRules(const yax::OpenedPackage& opened, const NetRule& nets, double millimetres)
      : m_(opened), nets_(nets), millimetres_(millimetres) {
    Add(m_.Package.Bonds, model::RecordTable::Bonds);
    Add(m_.Package.SDBonds, model::RecordTable::SDBonds);
    for (const WireLoop& loop : loops_)
      if (const double angle = AngleOf(loop); angle > 30.0 + 1e-3)
        Report("max-angle", m_.Lines.Of(loop.Place), 0, angle);
    WirePairs();
    Pads();
    Leads();
  }
  const Values& Found() const { return found_; }

 private:
  void Add(const model::Table<model::BondRec>& bonds, model::RecordTable table) {
    const bool stacked = table == model::RecordTable::SDBonds;
    for (std::size_t k = 0; k < bonds.Count(); ++k) {
      const model::BondRec& bond = bonds[k];
      const double x = bond.DieSizeX * s_,
                   y = (bond.DieShape == "ROUND" ? bond.DieSizeX : bond.DieSizeY) * s_;
      pads_.push_back({m_.Lines.Of({table, k, model::BondPart::DiePad}),
                       bond.Name,
                       bond.DieSide,
                       stacked,
                       {{bond.DieX * s_, bond.DieY * s_}, stacked ? stacked_.Angle : 0.0, x, y}});
      if (bond.SubX == 0.0F && bond.SubY == 0.0F) continue;
      const double base = bond.DieSide == "L" || bond.DieSide == "R" ? 0.0 : 90.0;
      const double half =
          model::EqualsUpper(bond.SubShape, "RECTANGLE") ? bond.SubSizeX * s_ / 2 : bond.SubSizeY * s_;
      leads_.push_back({m_.Lines.Of({table, k, model::BondPart::SubstratePad}),
                        bond.Name,
                        bond.DieSide,
                        stacked,
                        {{bond.SubX * s_, bond.SubY * s_},
                         (base - bond.SubAngle) * kDegree,
                         bond.SubSizeX * s_ / 2 + half,
                         bond.SubSizeY * s_},
                        WiresOf({table, k})});
    }
  }

  int WiresOf(const model::RecordPlace& bond) const {
    return static_cast<int>(std::count_if(loops_.begin(), loops_.end(), [&](const WireLoop& loop) {
      return loop.Place.Table == bond.Table && loop.Place.Number == bond.Number;
    }));
  }

  void Report(const char* rule, std::size_t a, std::size_t b, double value) {
    found_[std::string(rule) + " " + std::to_string(std::max(a, b)) + " " + std::to_string(std::min(a, b))] =
        value;
  }
  /// Limits in millimetres.
  bool IsBelow(double value, double limit) const { return value < (limit - 1e-5) / millimetres_; }
  void Below(const char* rule, std::size_t line, std::size_t other, double value, double limit) {
    if (IsBelow(value, limit)) Report(rule, line, other, value);
  }

  /// The angle between the wire and the normal of its pad's edge, rounded to ten-thousandths of a degree.
  double AngleOf(const WireLoop& loop) const {
    // Of the pads with a stitch's name the last one counts.
    std::string edge;
    for (const PlainThing& pad : pads_)
      if (pad.Name == loop.Pads[0] && (loop.Place.Table == model::RecordTable::Stitches ||
                                       pad.Stacked == (loop.Place.Table == model::RecordTable::SDBonds)))
        edge = pad.Edge;
    const double out = edge == "R" ? 0.0 : edge == "T" ? 90.0 : edge == "L" ? 180.0 : -90.0;
    const glm::dvec3 run = loop.Points[6] - loop.Points[0];
    return std::round(std::fabs(std::remainder(std::atan2(run.y, run.x) / kDegree - out, 360.0)) * 1e4) / 1e4;
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
    for (std::size_t i = 0; i < loops_.size(); ++i)
      for (std::size_t j = 0; j < i; ++j) {
        const WireLoop& a = loops_[i];
        const WireLoop& b = loops_[j];
        if (!Compared(a, b)) continue;
        double least = HUGE_VAL;
        for (std::size_t p = 0; p < 36; ++p)
          least = std::min(least, NearestPoints({a.Points[p / 6], a.Points[p / 6 + 1]},
                                                {b.Points[p % 6], b.Points[p % 6 + 1]})
                                      .Distance);
        Below("wire-gap", m_.Lines.Of(a.Place), m_.Lines.Of(b.Place), least - kDiameter, 0.06);
        const auto flat = [](const WireLoop& loop) {
          return Segment{{glm::dvec2(loop.Points[0]), 0.0}, {glm::dvec2(loop.Points[6]), 0.0}};
        };
        if (NearestPoints(flat(a), flat(b)).Distance <= 1e-5 / millimetres_)
          Report("no-crossing", m_.Lines.Of(a.Place), m_.Lines.Of(b.Place), 0.0);
      }
  }

  void Pads() {
    for (std::size_t i = 0; i < pads_.size(); ++i) {
      const Rectangle& at = pads_[i].At;
      double edge = HUGE_VAL;
      for (const glm::dvec2& corner : CornersOf(at))
        edge = std::min(edge, DepthOf(pads_[i].Stacked ? stacked_ : base_, corner));
      Below("pad-to-edge", pads_[i].Line, 0, edge, 0.06);
      Below("pad-size", pads_[i].Line, 0, std::min(at.Length, at.Width), 0.12);
      for (std::size_t j = 0; j < i; ++j) {
        if (pads_[i].Stacked != pads_[j].Stacked || pads_[i].Edge != pads_[j].Edge) continue;
        Below("pad-pitch", pads_[i].Line, pads_[j].Line, glm::distance(at.Middle, pads_[j].At.Middle), 0.15);
        Below("pad-gap", pads_[i].Line, pads_[j].Line, GapBetween(at, pads_[j].At, 0.06 / millimetres_),
              0.06);
      }
    }
  }

  void Leads() {
    // Records with the same place, size and angle are one pad, named after the first.
    std::map<std::array<double, 5>, PlainThing> byPlace;
    for (const PlainThing& lead : leads_) {
      const auto& [middle, angle, length, width] = lead.At;
      const auto [same, isNew] = byPlace.try_emplace({middle.x, middle.y, angle, length, width}, lead);
      if (isNew) continue;
      same->second.Line = std::min(same->second.Line, lead.Line);
      same->second.Wires += lead.Wires;
    }
    std::vector<PlainThing> distinct;
    for (const auto& [place, lead] : byPlace) distinct.push_back(lead);
    for (std::size_t i = 0; i < distinct.size(); ++i) {
      const auto& [line, name, side, stacked, at, wires] = distinct[i];
      Below("die-to-lead", line, 0, GapBetween(at, base_, 2.0 / millimetres_), 2.0);
      Below("lead-width", line, 0, std::min(at.Length, at.Width), 0.12);
      Below("lead-length", line, 0, std::max(at.Length, at.Width), 0.24);
      if (wires > 1) Report("max-wires", line, 0, wires);
      for (std::size_t j = 0; j < i; ++j)
        Below("lead-gap", line, distinct[j].Line, GapBetween(at, distinct[j].At, 0.06 / millimetres_), 0.06);
    }
  }

  static constexpr double kDegree = std::numbers::pi / 180.0;

  const yax::OpenedPackage& m_;
  const std::vector<WireLoop> loops_ = m_.Loops();
  const NetRule& nets_;
  const double millimetres_;
  const double s_ = m_.Package.UnitScale;
  const Rectangle base_{{}, 0, m_.Package.CompW* s_, m_.Package.CompL* s_};
  const Rectangle stacked_{{m_.Package.SDXOffset * s_, -m_.Package.SDYOffset* s_},
                           -m_.Package.SDRotation* kDegree,
                           m_.Package.SDCompW* s_,
                           m_.Package.SDCompL* s_};
  std::vector<PlainThing> pads_, leads_;
  Values found_;
};

void ExpectTheSame(const std::string& path, double millimetres, const std::string& pattern,
                   const std::string& what) {
  const yax::OpenedPackage opened({.File = path, .Loops = {.DieHeight = true}});
  const RuleSet set = ReadRules("rules", kRules);
  const NetRule nets{Pattern(pattern)};
  const RulesReport report =
      CheckRules(set, {opened.Package, opened.Lines, opened.Loops(), nets, millimetres, kDiameter});
  Values found;
  for (const RuleRemark& remark : report.Remarks)
    found[std::string(KindOf(set.Rules[remark.Rule].Name).Word) + " " + std::to_string(remark.Line) + " " +
          std::to_string(remark.OtherLine)] = remark.Value.value_or(0.0);
  EXPECT_EQ(found.size(), report.Remarks.size()) << what << ": a remark came twice";
  const PlainRules plain(opened, nets, millimetres);
  for (const auto& [key, value] : plain.Found()) {
    ASSERT_TRUE(found.contains(key)) << key << " is missing in " << what;
    EXPECT_NEAR(found.at(key), value, 1e-6) << key << " in " << what;
  }
  EXPECT_EQ(found.size(), plain.Found().size()) << what;
}

TEST(PlainRules, FindTheSameAsAPlainEvaluationOnEverySample) {
  for (const std::string name : kSamples)
    ExpectTheSame(SamplePath(name),
                  name == "cob32"                                        ? 1e-3
                  : name == "stacked-ram" || name == "flipchip-bigblade" ? 25.4e-3
                                                                         : 1.0,
                  "^(V..)_", name);
}

std::string RandomPackage(std::mt19937& random) {
  std::uniform_real_distribution<double> place(-2.0, 2.0), far(-5.0, 5.0), size(0.05, 0.4),
      angle(-90.0, 90.0);
  std::uniform_int_distribution<int> count(1, 25), edge(0, 3), shape(0, 1), tier(1, 4);
  std::ostringstream text;
  text << "TECHNOLOGY WIRE_BOND\nSD_COMPW 1.5\nSD_COMPL 1\nSD_COMPZ 0.3\nSD_ROTATION " << angle(random)
       << "\nSD_XOFFSET 0.2\nSD_YOFFSET -0.3\nCOMPL 4.1\nCOMPW 4.2\nCOMPZ 0.4\n";
  const int wires = count(random);
  double endX = 0.0, endY = 0.0, turn = 0.0, length = 0.0, width = 0.0;
  for (int k = 0; k < wires; ++k) {
    const bool stacked = k % 4 == 3;
    const double x = place(random) / (stacked ? 4.0 : 1.0), y = place(random) / (stacked ? 4.0 : 1.0);
    // Every fifth wire has the lead of the wire before.
    if (k % 5 != 4)
      endX = far(random), endY = far(random), turn = angle(random), length = size(random),
      width = size(random);
    const std::string name = " N" + std::to_string(k % 20) + '_' + std::to_string(k) + ' ';
    text << (stacked ? "SD_CBP" : "CBP") << name << x << ' ' << y << " 0 " << size(random) << ' '
         << size(random) << " 0 "
         << "LRTB"[edge(random)] << (shape(random) ? " ROUND\n" : " RECTANGLE\n");
    text << "SBP" << name << endX << ' ' << endY << " 0 " << length << ' ' << width << ' ' << turn
         << (shape(random) ? " RECTANGLE 1 " : " OBLONG 1 ") << tier(random) << '\n';
    text << "WB" << name << x << ' ' << y << " L " << endX + 0.01 * k << ' ' << endY << " 0.4 0\n";
  }
  return text.str();
}

TEST(PlainRules, FindTheSameAsAPlainEvaluationOnRandomPackages) {
  std::mt19937 random(13);
  for (int k = 0; k < 200 && !HasFailure(); ++k) {
    const TemporaryFolder folder;
    const std::string text = RandomPackage(random);
    ExpectTheSame(PutFile(folder / "board.yax", text), 1.0, "^(N.*)_",
                  "package " + std::to_string(k) + "\n" + text);
  }
}

}  // namespace
}  // namespace analysis
