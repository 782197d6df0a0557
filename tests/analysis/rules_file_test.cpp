#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "analysis/rules.h"
#include "model/files.h"
#include "tests/refusal.h"

namespace analysis {
namespace {

/// Each rule as it would be written, with its level where that is not the default.
std::vector<std::string> Texts(const RuleSet& set) {
  std::vector<std::string> texts;
  for (const Rule& rule : set.Rules)
    texts.push_back(RuleText(rule) + (rule.Level == RuleLevel::Note    ? " note"
                                      : rule.Level == RuleLevel::Error ? " error"
                                                                       : ""));
  return texts;
}
using Lines = std::vector<std::string>;

TEST(RulesFile, ReadsEveryRuleWithItsWordsInOrder) {
  const RuleSet set = ReadRules(
      "f",
      "# a house\n\n  rules  A house, 2026  # its name\n"
      "max-length 5 mm\nmin-length .5 mm plan\tnet POWER note\r\nmax-angle 45.5 deg tier 2 error # wide\n"
      "no-crossing\nwire-gap 1e-2 mil\nmax-wires 2 tier 1 finding\nlead-gap 1.5 die-height");
  EXPECT_EQ(set.Name, "A house, 2026");
  EXPECT_EQ(Texts(set), (Lines{"max-length 5 mm", "min-length 0.5 mm plan net POWER note",
                               "max-angle 45.5 deg tier 2 error", "no-crossing", "wire-gap 0.01 mil",
                               "max-wires 2 tier 1", "lead-gap 1.5 die-height"}));
  EXPECT_EQ(set.Rules.at(2).Line, 6U);
  EXPECT_TRUE(ReadRules("f", "").Rules.empty());
}

TEST(RulesFile, TheLastOfTheSameRuleCounts) {
  // Another unit of length, limit or level is the same rule; another plan, tier, net, or a limit in die
  // heights is not.
  EXPECT_EQ(Texts(ReadRules(
                "f",
                "max-length 5 mm\nmax-length 4 mm plan\nmax-length 2 die-height\nmax-length 3 mm tier 1\n"
                "max-length 3 mm net GROUND\nmax-length 100 mil error\n")),
            (Lines{"max-length 4 mm plan", "max-length 2 die-height", "max-length 3 mm tier 1",
                   "max-length 3 mm net GROUND", "max-length 100 mil error"}));
}

TEST(RulesFile, NamesTheFaultAndTheNearestWord) {
  const std::pair<const char*, const char*> rows[] = {
      {"max-lenght 5 mm", "1: unknown rule 'max-lenght'; write max-length"},
      {"\npad-pich 5 mm", "2: unknown rule 'pad-pich'; write pad-pitch"},
      {"MAX-LENGTH 5 mm", "1: unknown rule 'MAX-LENGTH'; write max-length"},
      {"max-length", "1: max-length has no limit; write a number after it"},
      {"max-length 5mm", "1: the limit '5mm' is not a number; write a number such as 0.5"},
      {"max-length inf mm", "1: the limit 'inf' is not a number; write a number such as 0.5"},
      {"max-length -1 mm", "1: the limit '-1' is negative; write 0 or more"},
      {"max-length 5", "1: the limit has no unit; write mm, um, mil or die-height"},
      {"max-length 5 mils", "1: unknown unit 'mils'; write mil"},
      {"max-angle 45 mm", "1: unknown unit 'mm'; write deg"},
      {"max-wires 0", "1: the limit '0' is not a whole number of at least 1; write a number such as 2"},
      {"max-wires 1.5", "1: the limit '1.5' is not a whole number of at least 1; write a number such as 2"},
      {"no-crossing 1 mm", "1: no-crossing takes no limit; remove '1'"},
      {"no-crossing mm", "1: no-crossing takes no unit; remove 'mm'"},
      {"max-wires 2 mm", "1: max-wires takes no unit; remove 'mm'"},
      {"max-length 2 mm um", "1: max-length takes only one unit; remove 'um'"},
      {"rule A house", "1: unknown rule 'rule'; write rules"},
      {"wire-gap 1 mil plan", "1: wire-gap does not take 'plan'; leave it out"},
      {"max-length 5 mm tier 1 plan",
       "1: 'plan' is in the wrong place; write [plan] [tier N | net TYPE] [note|finding|error]"},
      {"max-length 5 mm tier 1 net POWER",
       "1: 'net' is in the wrong place; write [plan] [tier N | net TYPE] [note|finding|error]"},
      {"max-length 5 mm net power", "1: unknown net type 'power'; write POWER"},
      {"max-length 5 mm tier x", "1: the tier 'x' is not a number; write a number such as tier 2"},
      {"max-wires 2 tier", "1: tier has no number; write a number such as tier 2"},
      {"max-wires 2 tier 00001", "1: the tier '00001' begins with 0; write tier 1"},
      {"max-wires 2 tier 00", "1: the tier '00' begins with 0; write tier 0"},
      {"max-wires 2 tier 1234567890", "1: the tier '1234567890' is too large; write a number such as tier 2"},
      {"max-length 5 mm warning", "1: unknown word 'warning'; write finding, or leave it out"},
      {"max-length 5 mm\nrules late",
       "2: 'rules TEXT' is allowed in the first line only; remove this line or move it there"},
      {"rules", "1: the set has no name; write rules TEXT"}};
  for (const auto& [text, fault] : rows)
    EXPECT_EQ(Refusal([&] { ReadRules("f", text); }), std::string("f:") + fault);
}

TEST(RulesFile, ShippedSetsAreValid) {
  std::size_t sets = 0;
  for (const auto& entry : std::filesystem::directory_iterator(YAX_RULES)) {
    if (entry.path().extension() != ".rules") continue;
    ++sets;
    const RuleSet set = ReadRules(entry.path().string(), model::ReadWholeFile(entry.path().string()));
    EXPECT_FALSE(set.Name.empty()) << entry.path();
    EXPECT_FALSE(set.Rules.empty()) << entry.path();
  }
  EXPECT_EQ(sets, 3U);
}

}  // namespace
}  // namespace analysis
