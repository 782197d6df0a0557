#include "shell/wire_list_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <ctime>
#include <iostream>
#include <string>

namespace shell {
namespace {

class WireListShown : public testing::Test {
 protected:
  void Add(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      model::WireNameRec& wire = package.WireNames.Spare();
      wire.Name = "NET_" + std::to_string(i);
      wire.Tier = std::to_string(i % 2 + 1);
      package.WireNames.Grow();
    }
  }
  void Open(std::size_t wires) {
    Add(wires);
    window.DoWireList();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Settle();
    rebuilds = 0;
  }
  static void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  }
  QPushButton* Button(const char* caption) {
    for (QPushButton* button : window.findChildren<QPushButton*>())
      if (button->text() == caption) return button;
    throw std::out_of_range(caption);
  }
  void Click(const char* caption) { QTest::mouseClick(Button(caption), Qt::LeftButton); }
  void ClickRow(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(list->viewport(), button, modifiers, Place(row));
    Settle();
  }
  QPoint Place(int row) { return list->visualRect(list->model()->index(row, 0)).center(); }
  void Key(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(type, key, modifiers);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
  }
  std::string Selected() {
    std::string rows;
    for (int row = 0; row < list->model()->rowCount(); ++row)
      if (list->selectionModel()->isSelected(list->model()->index(row, 0))) rows += std::to_string(row);
    return rows;
  }

  model::Package package;
  render::WireSelection selection;
  WireListForm form{package, selection};
  int rebuilds = 0;
  WireListWindow window{form};
  QListView* list = window.findChild<QListView*>();

  WireListShown() {
    form.upward.rebuildAndRepaint = [this] { ++rebuilds; };
  }
};

TEST_F(WireListShown, EveryClickRebuildsOnce) {
  Open(6);
  ClickRow(2);
  EXPECT_EQ(rebuilds, 1);
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"NET_2"}));
  ClickRow(4, Qt::ShiftModifier);
  EXPECT_EQ(rebuilds, 2);
  EXPECT_EQ(Selected(), "234");
  ClickRow(3, Qt::ControlModifier);
  EXPECT_EQ(rebuilds, 3);
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"NET_2", "NET_4"}));
  ClickRow(0);
  EXPECT_EQ(rebuilds, 4);
  ClickRow(0);
  EXPECT_EQ(rebuilds, 5);  // nothing changed
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"NET_0"}));
}

TEST_F(WireListShown, ADragRebuildsWhenItEnds) {
  Open(8);
  QTest::mousePress(list->viewport(), Qt::LeftButton, {}, Place(1));
  for (int row = 2; row <= 4; ++row) QTest::mouseMove(list->viewport(), Place(row));
  Settle();
  EXPECT_EQ(rebuilds, 0);
  QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, Place(4));
  Settle();
  EXPECT_EQ(rebuilds, 1);
  EXPECT_EQ(Selected(), "1234");
  EXPECT_EQ(selection.Names.size(), 4U);
}

TEST_F(WireListShown, KeysAndOtherChangesRebuildOnce) {
  Open(5);
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Down);
  Settle();
  EXPECT_EQ(rebuilds, 1);
  QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(rebuilds, 2);
  EXPECT_EQ(selection.Names.size(), 5U);
  for (int row = 0; row < 3; ++row)
    list->selectionModel()->select(list->model()->index(row, 0), QItemSelectionModel::Deselect);
  Settle();
  EXPECT_EQ(rebuilds, 3);
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"NET_3", "NET_4"}));
}

TEST_F(WireListShown, ModifierKeysAreTrackedThoughTheirOwnBitIsInverted) {
  Open(4);
  for (const bool inverted : {false, true}) {
    const auto own = [&](Qt::KeyboardModifier bit, bool pressed) {
      return pressed != inverted ? Qt::KeyboardModifiers(bit) : Qt::NoModifier;
    };
    Click("Tier1");
    Key(QEvent::KeyPress, Qt::Key_Control, own(Qt::ControlModifier, true));
    Click("Tier2");
    Click("Tier1");
    EXPECT_EQ(Selected(), "13");
    Key(QEvent::KeyRelease, Qt::Key_Control, own(Qt::ControlModifier, false));
    Key(QEvent::KeyPress, Qt::Key_Shift, own(Qt::ShiftModifier, true));
    Click("Tier1");
    EXPECT_EQ(Selected(), "0123");
    Key(QEvent::KeyRelease, Qt::Key_Shift, own(Qt::ShiftModifier, false));
    Click("Tier2");
    EXPECT_EQ(Selected(), "13");
  }
}

TEST_F(WireListShown, KeysExtendAndShrinkAStretchBesideWhatWasSelected) {
  Open(8);
  Click("Tier1");  // 0246
  ClickRow(1, Qt::ControlModifier);
  EXPECT_EQ(Selected(), "01246");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "01234567");
  QTest::keyClick(list, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "0123456");
  QTest::keyClick(list, Qt::Key_Home);
  EXPECT_EQ(Selected(), "0");
  Settle();
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"NET_0"}));
}

TEST_F(WireListShown, AssistiveTechnologyReadsAndSelectsEntries) {
  Open(3);
  QAccessibleInterface* wires = QAccessible::queryAccessibleInterface(list);
  ASSERT_TRUE(wires);
  EXPECT_EQ(wires->text(QAccessible::Name), "Wires");
  ASSERT_EQ(wires->childCount(), 3);
  QAccessibleInterface* entry = wires->child(1);
  EXPECT_EQ(entry->text(QAccessible::Name), "NET_1");
  ASSERT_TRUE(wires->tableInterface());
  wires->tableInterface()->selectRow(1);
  Settle();
  EXPECT_TRUE(entry->state().selected);
  EXPECT_EQ(rebuilds, 1);
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"NET_1"}));
}

TEST_F(WireListShown, ALongListIsQuick) {
  // Tiers take turns: 16,000 ranges, the most that a filter can select.
  Add(32000);
  // Processor time: the machine may be busy with other things.
  const auto cost = [](auto&& work) {
    const std::clock_t start = std::clock();
    work();
    return std::clock() - start;
  };
  const std::clock_t fill = cost([&] { form.DoWireList(); });
  const std::clock_t open = cost([&] { window.DoWireList(); });
  const std::clock_t filter = cost([&] { Button("Tier2")->click(); });
  EXPECT_EQ(selection.Names.size(), 16000U);
  const std::clock_t clear = cost([&] { Button("Clear")->click(); });
  EXPECT_TRUE(selection.Names.empty());
  std::cout << "clocks: fill " << fill << ", open " << open << ", filter " << filter << ", clear " << clear
            << "\n";
  EXPECT_LE(open + filter + clear, 20 * fill);

  // From 16,000 ranges to one: as quick as a filter, not as the product of both.
  Button("Tier1")->click();
  EXPECT_LE(cost([&] { list->selectAll(); }), 40 * fill);
  EXPECT_EQ(list->selectionModel()->selection().size(), 1);
}

}  // namespace
}  // namespace shell
