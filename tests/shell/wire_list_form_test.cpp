#include "shell/wire_list_form.h"

#include <gtest/gtest.h>

#include "tests/fault_of.h"

namespace shell {
namespace {

enum Index { kTier1, kTier2, kTier3, kTier4, kStitch, kPower, kGround, kSignal, kClear };

class WireList : public testing::Test {
 protected:
  WireList() {
    form.Actions.RebuildAndRepaint = [this] { ++rebuilds; };
    form.Actions.SelectAndGoToFirst = [this](const EntryRanges& ranges) { sent.push_back(ranges); };
  }

  void Add(const char* name, const char* tier, const char* netType = "", const char* name2 = "") {
    model::WireNameRec& wire = package.WireNames.Spare();
    wire.Name = name;
    wire.Name2 = name2;
    wire.Tier = tier;
    wire.NetType = netType;
    package.WireNames.Grow();
    if (*name2) package.Stitches.Grow();
  }

  /// Five wires: every tier once, "A" twice a power net in its spelling, one stitch.
  void OpenFive() {
    Add("A", "1", "POWER");
    Add("B", "2", "ground");
    Add("C", "3", "Signal");
    Add("D", "1", "p");
    Add("A", "4", "", "C");
    form.DoWireList();
    form.Form_Show();
    rebuilds = 0;
  }

  std::string Pressed(int index, int shift = 0) {
    form.Form_KeyDown(shift);
    form.Cmd_Click(index);
    form.Form_KeyUp(0);
    return Selected();
  }

  std::string Selected() const {
    std::string numbers;
    for (const EntryRange& range : form.SelectedRanges())
      for (std::size_t i = range.First; i <= range.Last; ++i) numbers += std::to_string(i);
    return numbers;
  }

  std::string EnabledButtons() const {
    std::string numbers;
    for (std::size_t i = 0; i < WireListForm::kButtons; ++i)
      if (form.Enabled(i)) numbers += std::to_string(i);
    return numbers;
  }

  model::Package package;
  model::WireSelection selection;
  WireListForm form{package, selection};
  int rebuilds = 0;
  std::vector<EntryRanges> sent;
};

TEST_F(WireList, ButtonsAreEnabledByWhatThePackageHas) {
  OpenFive();
  EXPECT_EQ(EnabledButtons(), "012348");  // net types are there, but no side file was read
  package = {};
  package.HaveVuFile = true;
  form.DoWireList();
  EXPECT_EQ(EnabledButtons(), "5678");
}

TEST_F(WireList, ATierAddressesAButtonByItsNumber) {
  // Halves go to even: 1.5 is 0.5 and so 0, 2.5 is 1.5 and so 2, 9.5 is 8.5 and so 8.
  const std::pair<const char*, const char*> cases[] = {
      {"", "8"},    {"1", "08"},   {"5", "48"},   {"6", "58"},   {"9", "8"},
      {"2x", "18"}, {"1.5", "08"}, {"2.5", "28"}, {"0.5", "08"}, {"9.5", "8"}};
  for (const auto& [tier, buttons] : cases) {
    package = {};
    Add("A", tier);
    form.DoWireList();
    EXPECT_EQ(EnabledButtons(), buttons) << tier;
  }
}

TEST_F(WireList, ATierWithoutAButtonFaultsAndChangesNothing) {
  OpenFive();
  Pressed(kTier1);
  for (const char* tier : {"0", "10", "x", "-1", "0.4", "9.6", "1e30"}) {
    package = {};
    Add("A", "", "", "VDD");
    Add("VSS", tier, "", "OUT");
    EXPECT_EQ(FaultOf([&] { form.DoWireList(); }),
              "Run-time error: Subscript out of range (wire VSS:OUT: no button for tier " +
                  std::string(tier) + ")");
    EXPECT_EQ(form.Entries().size(), 5U);
    EXPECT_EQ(Selected(), "03");
  }
}

TEST_F(WireList, EachButtonFindsItsWires) {
  OpenFive();
  const std::pair<int, const char*> cases[] = {{kTier1, "03"}, {kTier2, "1"},  {kTier3, "2"},
                                               {kTier4, "4"},  {kStitch, "4"}, {kPower, "03"},
                                               {kGround, "1"}, {kSignal, "2"}};
  for (const auto& [index, found] : cases) EXPECT_EQ(Pressed(index), found) << index;
  package.WireNames[0].Tier = "1.0";
  EXPECT_EQ(Pressed(kTier1), "3") << "tiers are compared as text";
}

TEST_F(WireList, ShiftAddsAndCtrlInverts) {
  OpenFive();
  constexpr int kShiftKey = 1, kCtrlKey = 2, kAltKey = 4;
  EXPECT_EQ(Pressed(kPower), "03");
  EXPECT_EQ(Pressed(kGround, kShiftKey), "013");
  EXPECT_EQ(Pressed(kTier1, kCtrlKey), "1");
  EXPECT_EQ(Pressed(kTier1, kCtrlKey), "013");
  EXPECT_EQ(Pressed(kTier2, kCtrlKey), "03");
  EXPECT_EQ(Pressed(kSignal, kShiftKey | kCtrlKey), "2");  // neither key is down alone
  EXPECT_EQ(Pressed(kTier4, kShiftKey | kAltKey), "4");
  EXPECT_EQ(Pressed(kClear, kCtrlKey), "");
}

TEST_F(WireList, AButtonSendsMergedRangesOnceAndRebuildsOnce) {
  for (const char* tier : {"1", "1", "2", "1", "1", "1", "2"}) Add("A", tier);
  form.DoWireList();
  form.Cmd_Click(kTier1);
  form.Cmd_Click(kClear);
  form.Cmd_Click(9);
  form.Cmd_Click(-1);
  EXPECT_EQ(sent, (std::vector<EntryRanges>{{{0, 1}, {3, 5}}, {}, {}, {}}));
  EXPECT_EQ(rebuilds, 4);
}

TEST_F(WireList, TheListsSelectionIsTakenOverInAnyOrder) {
  OpenFive();
  form.PL_SelectionChanged({{4, 4}, {0, 1}});
  EXPECT_EQ(Selected(), "014");
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"A", "B", "A:C"}));
  EXPECT_EQ(rebuilds, 1);
  form.PL_SelectionChanged({{0, 0}, {1, 1}, {4, 4}});
  EXPECT_EQ(rebuilds, 1);  // the same entries
  form.PL_MouseUp({{0, 1}, {4, 4}});
  EXPECT_EQ(rebuilds, 2);  // the mouse rebuilds even so
}

TEST_F(WireList, OtherTextsAfterALoadRefillAndKeepTheSelectionByText) {
  OpenFive();
  Pressed(kTier1);  // A, D
  rebuilds = 0;
  package.WireNames[0].Tier = "2";
  package.HaveVuFile = true;
  EXPECT_FALSE(form.Refill());  // the texts are the same
  EXPECT_EQ(EnabledButtons(), "012345678") << "not so the tiers and the side file";
  package = {};
  Add("D", "2");
  Add("E", "2");
  EXPECT_EQ(Pressed(kTier2, 1), "013");  // not yet refilled: two records for five entries
  package.WireNames[1].Name = "A";
  EXPECT_TRUE(form.Refill());
  EXPECT_EQ(form.Entries(), (std::vector<std::string>{"D", "A"}));
  EXPECT_EQ(Selected(), "01");
  EXPECT_EQ(EnabledButtons(), "18");
  EXPECT_EQ(rebuilds, 1);  // the button's; the load rebuilds by itself
  for (int closed = 0; closed < 2; ++closed) form.Form_Unload();
  EXPECT_EQ(rebuilds, 2);
  package = {};
  EXPECT_FALSE(form.Refill());
}

}  // namespace
}  // namespace shell
