#include "tests/shell/setup_and_list_fixture.h"

namespace shell {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

class WireListInProgram : public SetupAndList {
 protected:
  /// True when exactly the wires are drawn whose entries this selects.
  bool DrawsEntries(const std::function<bool(const model::WireNameRec& wire)>& selects) {
    std::set<std::string> names;
    for (const model::WireNameRec& wire : Form().Package().WireNames)
      if (selects(wire)) names.insert(wire.Name2.empty() ? wire.Name : wire.Name + ":" + wire.Name2);
    return Draws(names);
  }
};

TEST_F(WireListInProgram, ShownItDrawsTheSelectedClosedAll) {
  ShowSample("AAAc");
  EXPECT_TRUE(Draws(Every));
  QListView& list = OpenList();
  EXPECT_EQ(WireCount(), 0U);
  Press(list, "Stitch");
  EXPECT_TRUE(DrawsEntries([](const auto& wire) { return !wire.Name2.empty(); }));
  EXPECT_EQ(WireCount(), 8U);
  list.window()->close();
  EXPECT_TRUE(Draws(Every));
  OpenList();
  EXPECT_EQ(WireCount(), 0U) << "filled from scratch";
}

TEST_F(WireListInProgram, FiltersFindTiersAndNets) {
  ShowSample("bga332");
  QListView& list = OpenList();
  EXPECT_FALSE(Button(list, "Stitch")->isEnabled());
  // The bond list's tiers and net types, counted in the sample's two files.
  const std::pair<const char*, std::size_t> counts[] = {{"Tier1", 92},  {"Tier2", 61}, {"Tier3", 35},
                                                        {"Tier4", 140}, {"Power", 94}, {"Ground", 94},
                                                        {"Signal", 140}};
  for (const auto& [button, count] : counts) {
    Press(list, button);
    EXPECT_EQ(WireCount(), count) << button;
  }
  const auto net = [](const model::WireNameRec& wire, const char* type) { return wire.NetType == type; };
  Press(list, "Power");
  PressHolding(Qt::Key_Shift, Qt::ShiftModifier, list, "Ground");
  EXPECT_TRUE(DrawsEntries([&](const auto& wire) { return net(wire, "POWER") || net(wire, "GROUND"); }));
  PressHolding(Qt::Key_Control, Qt::ControlModifier, list, "Tier1");
  EXPECT_TRUE(DrawsEntries(
      [&](const auto& wire) { return (net(wire, "POWER") || net(wire, "GROUND")) != (wire.Tier == "1"); }));
  PressHolding(Qt::Key_Control, Qt::ControlModifier, list, "Tier1");
  Press(list, "Ground");
  EXPECT_TRUE(DrawsEntries([&](const auto& wire) { return net(wire, "GROUND"); }));
  Press(list, "Clear");
  EXPECT_EQ(WireCount(), 0U);
}

TEST_F(WireListInProgram, TiersCountedFromZeroAreListedFromOne) {
  ShowSample("lqfp100");
  QListView& list = OpenList();
  EXPECT_FALSE(Button(list, "Tier3")->isEnabled());
  Press(list, "Tier1");
  EXPECT_EQ(WireCount(), 12U);
  Press(list, "Tier2");
  EXPECT_EQ(WireCount(), 100U);
}

TEST_F(WireListInProgram, HandsSelectByMouseAndKeys) {
  Show(Package({{"A", "1"}, {"B", "1"}, {"C", "1"}, {"D", "1"}, {"E", "1"}}));
  QListView& list = OpenList();
  ClickRow(list, 1);
  EXPECT_TRUE(Draws({"B"}));
  ClickRow(list, 3, Qt::ShiftModifier);
  EXPECT_TRUE(Draws({"B", "C", "D"}));
  ClickRow(list, 2, Qt::ControlModifier);
  EXPECT_TRUE(Draws({"B", "D"}));
  ClickRow(list, 0);
  EXPECT_TRUE(Draws({"A"}));
  Type(list, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_TRUE(Draws({"A", "B"}));
  Type(list, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_TRUE(Draws({"A"}));
  Type(list, Qt::Key_End);
  EXPECT_TRUE(Draws({"E"}));
  Type(list, Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(Draws(Every));
  Press(list, "Clear");
  EXPECT_EQ(list.currentIndex().row(), 0);
  EXPECT_EQ(WireCount(), 0U);
}

TEST_F(WireListInProgram, TheKeyboardAloneFilters) {
  Show(Package({{"A", "1"}, {"B", "2"}, {"C", "3"}}));
  QListView& list = OpenList();
  QWindow* const keys = list.window()->windowHandle();
  EXPECT_TRUE(list.hasFocus());
  QTest::keyClick(keys, Qt::Key_Tab);
  ASSERT_TRUE(Button(list, "Tier1")->hasFocus());
  QTest::keyClick(keys, Qt::Key_Return);
  EXPECT_TRUE(Draws({"A"}));
  QTest::keyClick(keys, Qt::Key_Tab);
  QTest::keyPress(keys, Qt::Key_Shift, Qt::ShiftModifier);
  QTest::keyClick(keys, Qt::Key_Space, Qt::ShiftModifier);
  QTest::keyRelease(keys, Qt::Key_Shift);
  EXPECT_TRUE(Draws({"A", "B"}));
}

TEST_F(WireListInProgram, NamesMayRepeatAndLeaveAscii) {
  // Wires of a second bond of the same name replace those of the first; both entries stay.
  Show(Package(
      {{"\xC3\x84", "1"}, {"\xE6\xBC\xA2", "2"}, {"\xC3\x84", "1"}, {"\xC3\xA4", "3"}, {"\xFF", "4"}}));
  QListView& list = OpenList();
  ASSERT_EQ(list.model()->rowCount(), 5);
  EXPECT_EQ(list.model()->index(1, 0).data().toString(), QString(QChar(0x6F22)));
  ClickRow(list, 2);
  EXPECT_TRUE(Draws({"\xC3\x84"}));
  ClickRow(list, 0, Qt::ControlModifier);
  ClickRow(list, 0, Qt::ControlModifier);
  EXPECT_TRUE(Draws({"\xC3\x84"})) << "the other entry of the name is still selected";
  ClickRow(list, 4);
  EXPECT_TRUE(Draws({"\xFF"})) << "not even text";
}

TEST_F(WireListInProgram, HomeKeepsTheListAndTheSelectionByText) {
  const std::string path = Package({{"A", "1"}, {"B", "2"}, {"C", "1"}});
  Show(path);
  QListView& list = OpenList();
  ClickRow(list, 1);
  Package({{"X", "1"}, {"Y", "1"}, {"Z", "1"}, {"B", "2"}});
  QTest::keyClick(window->windowHandle(), Qt::Key_Home);
  Settle();
  EXPECT_TRUE(list.isVisible());
  ASSERT_EQ(list.model()->rowCount(), 4);
  EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(3, 0)));
  EXPECT_TRUE(Draws({"B"}));
  Press(list, "Tier1");
  EXPECT_TRUE(Draws({"X", "Y", "Z"}));
  // The command would fault on such a tier; a load does not.
  Package({{"X", "00"}, {"Y", "1"}});
  QTest::keyClick(window->windowHandle(), Qt::Key_Home);
  EXPECT_TRUE(Draws({"X", "Y"}));
  EXPECT_TRUE(Button(list, "Tier1")->isEnabled());
  EXPECT_TRUE(boxes.empty());
}

TEST_F(WireListInProgram, ATierMayEnableAnyButton) {
  Show(Package({{"A", "5"}, {"B", "7"}}));
  QListView& list = OpenList();
  EXPECT_TRUE(Button(list, "Stitch")->isEnabled());
  EXPECT_TRUE(Button(list, "Ground")->isEnabled());
  EXPECT_FALSE(Button(list, "Tier1")->isEnabled());
  Press(list, "Stitch");
  EXPECT_EQ(WireCount(), 0U);
}

TEST_F(WireListInProgram, ATierWithoutAButtonEndsTheProgramWithItsMessage) {
  // The lowest tier is "00", which is not the text that renumbers them.
  Show(Package({{"A", "1"}, {"B", "00"}, {"C", "0"}}));
  Choose("DoWireList");
  EXPECT_EQ(boxes.at(0),
            "3D YAX Viewer: Run-time error: Subscript out of range (wire B: no button for tier 00)");
  EXPECT_EQ(status, 1);
}

}  // namespace
}  // namespace shell
