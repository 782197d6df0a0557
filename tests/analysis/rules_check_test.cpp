#include "analysis/rules_check.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "analysis/rule_diagnostics.h"
#include "tests/temporary_folder.h"
#include "yax/options/opened_package.h"

namespace analysis {
namespace {

RulesReport Check(const RuleSet& rules, const yax::OpenedPackage& opened) {
  return CheckRules(rules, {opened.Package, opened.Lines, opened.Loops(), {}, 1.0, 0.0254});
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
  const yax::OpenedPackage measured(
      {.File = PutFile(folder / "board.yax", kPackage), .Loops = {.DieHeight = true}});
  const std::pair<const char*, Found> rows[] = {
      // sqrt(2.95^2 + 1.25^2) = 3.2039.
      {"max-length 3 mm plan", {"13 3204"}},
      {"min-length 3.1 mm plan", {"11 3000", "12 3000"}},
      {"max-length 3000 um plan net POWER", {}},
      {"max-length 118 mil plan tier 1", {"11 3000"}},
      {"max-length 6.1 die-height plan", {"13 3204"}},
      // Its loop is 0.2 + 2 * sqrt(0.025^2 + 0.1^2) + sqrt(0.02) + 0.35 long up to x = 0.5 along it, at
      // height
      // 1, and sqrt(2.7039^2 + 1) from there. In A and B, 2.5 in place of 2.7039 makes 3.590.
      {"max-length 3.6 mm", {"13 3780"}},
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
  for (const auto& [rule, found] : rows)
    EXPECT_EQ(Texts(Check(ReadRules("rules", rule), measured).Remarks), found) << rule;
}

TEST(Rules, ReportValueAndLimit) {
  const TemporaryFolder folder;
  const yax::OpenedPackage measured(
      {.File = PutFile(folder / "board.yax", kPackage), .Loops = {.DieHeight = true}});
  const std::pair<const char*, const char*> rows[] = {
      {"max-length 3.1 mm plan error",
       "13: max-length: wire 'C' is 3.203904 mm long in plan, over the limit of 3.1 mm"},
      {"max-angle 22 deg",
       "13: max-angle: wire 'C' turns 22.9638 deg from the normal of its pad's edge, over the "
       "limit of 22 deg"},
      {"no-crossing tier 1", "13: no-crossing: wire 'C' crosses wire 'A' of line 11"},
      {"die-to-lead 2.5 mm",
       "8: die-to-lead: substrate pad of 'A' is 2.4 mm away from the die, under the limit of 2.5 mm"},
      {"pad-gap 0.1 mm",
       "6: pad-gap: die pad 'B' leaves 0.05 mm to die pad 'A' of line 5, under the limit of 0.1 mm"},
      {"pad-pitch 0.3 mm",
       "6: pad-pitch: die pad 'B' has its centre 0.25 mm from that of die pad 'A' of line 5, under "
       "the limit of 0.3 mm"},
      {"max-wires 1", "9: max-wires: substrate pad of 'B' takes 2 wires, over the limit of 1 wire"},
      {"pad-size 0.05 mm tier 7", "1: the package has nothing for pad-size 0.05 mm tier 7"},
      {"max-length 1 mm tier 7", "1: the package has nothing for max-length 1 mm tier 7"},
      {"max-wires 9 net POWER", "1: the package has nothing for max-wires 9 net POWER"},
      {"wire-gap 0 mm tier 8", "1: the package has nothing for wire-gap 0 mm tier 8"}};
  for (const auto& [rule, message] : rows) {
    const RuleSet set = ReadRules("rules", rule);
    const RulesReport report = Check(set, measured);
    Diagnostics found{.File = "board.yax"};
    AddRuleDiagnostics(set, report, measured.Package, "rules", "mm", found);
    ASSERT_EQ(found.List.size(), 1U) << rule;
    EXPECT_EQ(std::to_string(found.List[0].Place.Line) + ": " + found.List[0].What, message);
    EXPECT_EQ(found.List[0].Place.File, report.Remarks.empty() ? "rules" : "board.yax");
  }
}

}  // namespace
}  // namespace analysis
