// The setup and list windows within the program: what they share with the view and its loads.
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPointer>
#include <QRadioButton>
#include <QScreen>

#include "tests/shell/ui/main_window_fixture.h"

namespace shell {
namespace {

class SetupAndList : public MainWindowTest {
 protected:
  /// Bonds of a die at 2 x 2, 0.5 high, and their wires.
  static std::string Package(const std::vector<std::pair<std::string, std::string>>& namesAndTiers) {
    std::string text = "TECHNOLOGY WIRE_BOND\nCOMPL 2\nCOMPW 2\nCOMPZ 0.5\n";
    int y = 0;
    for (const auto& [name, tier] : namesAndTiers) {
      const std::string at = " 0." + std::to_string(++y);
      text += "CBP " + name + " 0.9" + at + " 0 0.1 0.1 0 R RECTANGLE\n";
      text += "SBP " + name + " 2" + at + " 0 0.1 0.1 0 RECTANGLE 0 " + tier + "\n";
      text += "WB " + name + " 0.9" + at + " 0 2" + at + " 0.5 0\n";
    }
    return text;
  }

  /// Right button on the view, then the entry; the window of that title.
  QWidget& OpenWindow(const char* entry, const QString& title) {
    QTest::mouseClick(&View(), Qt::RightButton);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&Menu()));
    QTest::mouseClick(&Menu(), Qt::LeftButton, {}, Menu().actionGeometry(&Entry(entry)).center());
    QWidget* const opened = Shown(title);
    if (opened == nullptr) throw std::out_of_range(entry);
    EXPECT_TRUE(QTest::qWaitForWindowActive(opened));
    return *opened;
  }
  QWidget& OpenSetup() { return OpenWindow("DoBondWireSetup", "Wire Bond Setup"); }
  QListView& OpenList() { return *OpenWindow("DoWireList", "Wire List").findChild<QListView*>(); }

  template <class Control>
  static void Press(const QWidget& in, const QString& caption, const QString& frame = {}) {
    Find<Control>(in, caption, frame).click();
  }

  /// The names of the wires shown, or "all"; the view must show them already.
  std::string Drawn() {
    QCoreApplication::processEvents();
    const render::Picture shown = Form().FramePicture();
    Form().BuildCube();
    EXPECT_TRUE(shown.Rgb == Form().FramePicture().Rgb) << "the view was not rebuilt";
    std::string names;
    for (const model::BondRec& bond : Form().Package().Bonds)
      if (Form().Selection().Draws(bond.Name)) names += bond.Name;
    return names;
  }
};

TEST_F(SetupAndList, SettingsReachTheViewAtApplyAndALoadResetsThem) {
  PutFile(package, Package({{"A", "1"}}));
  Open();
  QWidget& setup = OpenSetup();
  QLineEdit& height = Find<QLineEdit>(setup, "Base Loop Height value");
  Press<QRadioButton>(setup, "Custom", "Base Loop Height");
  height.setText("0.75");
  Press<QRadioButton>(setup, "Cu");
  const render::Picture before = Form().FramePicture();
  Press<QPushButton>(setup, "Apply");
  EXPECT_EQ(Form().Settings().BaseLoopHeight, 0.75F);
  EXPECT_FALSE(Form().FramePicture().Rgb == before.Rgb);
  EXPECT_EQ(Drawn(), "A");
  // The scale of this one is 10.
  dialog.answer = PutFile(folder / "other.yax", "COMPL 20\nCOMPW 20\nCOMPZ 3\n");
  Entry("DoLoadYAX").trigger();
  EXPECT_TRUE(setup.isVisible());
  EXPECT_EQ(Form().Settings().Material, "Au");
  EXPECT_EQ(height.text(), "3");
  EXPECT_FALSE(height.isEnabled());
}

TEST_F(SetupAndList, TheListLimitsTheViewWhileItIsShown) {
  PutFile(package, Package({{"A", "1"}, {"B", "2"}, {"C", "1"}}));
  Open();
  QPointer<QListView> list = &OpenList();
  EXPECT_EQ(Drawn(), "");
  Press<QPushButton>(*list->window(), "Tier1");
  EXPECT_EQ(Drawn(), "AC");
  list->window()->close();
  EXPECT_EQ(Drawn(), "ABC");
  list = &OpenList();
  EXPECT_EQ(Drawn(), "") << "filled from scratch";

  // Home keeps the list, and the selection by its text.
  Press<QPushButton>(*list->window(), "Tier2");
  PutFile(package, Package({{"X", "1"}, {"B", "00"}}));
  Key(Qt::Key_Home);
  EXPECT_EQ(list->model()->rowCount(), 2);
  EXPECT_EQ(Drawn(), "B");
  EXPECT_TRUE(boxes.empty()) << "a tier of 0 is a fault of the command, not of a load";

  // A load closes it before it asks, and cancelled shows all wires of the old package.
  dialog.asking = [&] { EXPECT_FALSE(list); };
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(dialog.asked.size(), 1U);
  EXPECT_EQ(Drawn(), "XB");
  Entry("DoWireList").trigger();
  EXPECT_EQ(boxes.at(0),
            "3D YAX Viewer: Run-time error: Subscript out of range (wire B: no button for tier 00)");
  EXPECT_EQ(status, 1);
}

}  // namespace
}  // namespace shell
