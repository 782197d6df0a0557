#include "shell/ui/wire_list_window.h"

#include <gtest/gtest.h>

#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <ctime>
#include <string>

#include "tests/find_control.h"

namespace shell {
namespace {

class WireListShown : public testing::Test {
 protected:
  void Add(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      model::WireNameRec& wire = package.WireNames.Spare();
      wire.Name = "\xE6\xBC\xA2_" + std::to_string(i);
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
  void Click(const char* caption) { QTest::mouseClick(&Find<QPushButton>(window, caption), Qt::LeftButton); }
  void ClickRow(int row, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, Place(row));
    Settle();
  }
  void Type(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(list, Qt::Key(key), modifiers);
    Settle();
  }
  QPoint Place(int row) { return list->visualRect(list->model()->index(row, 0)).center(); }
  void Key(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(type, key, modifiers);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
  }
  /// The selected rows, which the form knows already.
  std::string Selected() {
    std::string rows;
    for (int row = 0; row < list->model()->rowCount(); ++row)
      if (list->selectionModel()->isSelected(list->model()->index(row, 0))) rows += std::to_string(row);
    std::string known;
    for (const EntryRange& range : form.SelectedRanges())
      for (std::size_t row = range.First; row <= range.Last; ++row) known += std::to_string(row);
    EXPECT_EQ(rows, known);
    return rows;
  }

  model::Package package;
  model::WireSelection selection;
  WireListForm form{package, selection};
  int rebuilds = 0;
  ui::WireListWindow window{form};
  QListView* list = window.findChild<QListView*>();

  WireListShown() {
    form.Actions.RebuildAndRepaint = [this] { ++rebuilds; };
  }
};

TEST_F(WireListShown, EveryClickAndKeyRebuildsOnceAndADragAtItsEnd) {
  Open(8);
  const struct {
    int row;
    Qt::KeyboardModifiers modifiers;
    const char* selected;
  } clicks[] = {{2, {}, "2"},
                {4, Qt::ShiftModifier, "234"},
                {3, Qt::ControlModifier, "24"},
                {0, {}, "0"},
                {0, {}, "0"}};
  for (const auto& [row, modifiers, selected] : clicks) {
    rebuilds = 0;
    ClickRow(row, modifiers);
    EXPECT_EQ(Selected(), selected);
    EXPECT_EQ(rebuilds, 1);  // changed or not
  }
  QTest::mousePress(list->viewport(), Qt::LeftButton, {}, Place(1));
  for (int row = 2; row <= 4; ++row) QTest::mouseMove(list->viewport(), Place(row));
  Settle();
  EXPECT_EQ(rebuilds, 1);
  QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, Place(4));
  Settle();
  EXPECT_EQ(rebuilds, 2);
  EXPECT_EQ(Selected(), "1234");
  Type(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(rebuilds, 3);
  for (int row = 0; row < 6; ++row)
    list->selectionModel()->select(list->model()->index(row, 0), QItemSelectionModel::Deselect);
  Settle();
  EXPECT_EQ(rebuilds, 4);
  EXPECT_EQ(Selected(), "67");
  EXPECT_EQ(selection.Names, (std::unordered_set<std::string>{"\xE6\xBC\xA2_6", "\xE6\xBC\xA2_7"}));
  EXPECT_EQ(list->model()->index(6, 0).data().toString(), QString(QChar(0x6F22)) + "_6");
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

TEST_F(WireListShown, KeysExtendAndShrinkARangeBesideTheSelection) {
  Open(8);
  Click("Tier1");  // 0246
  Type(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "01246");
  Type(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "01234567");
  Type(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "0123456");
  Type(Qt::Key_Home);
  EXPECT_EQ(Selected(), "0");
  // A button pressed before the list has reported a key adds to what the key selected.
  QTest::keyClick(list, Qt::Key_End);
  Key(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
  Click("Tier1");
  EXPECT_EQ(Selected(), "02467");
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
  const std::clock_t shown = cost([&] {
    window.DoWireList();
    Find<QPushButton>(window, "Tier2").click();
    EXPECT_EQ(selection.Names.size(), 16000U);
    Find<QPushButton>(window, "Clear").click();
  });
  EXPECT_TRUE(selection.Names.empty());
  EXPECT_LE(shown, 20 * fill);

  // From 16,000 ranges to one: as quick as a filter, not as the product of both.
  Find<QPushButton>(window, "Tier1").click();
  EXPECT_LE(cost([&] { list->selectAll(); }), 40 * fill);
  EXPECT_EQ(list->selectionModel()->selection().size(), 1);
}

}  // namespace
}  // namespace shell
