/// The whole main window on a package, its setup and list windows opened through its menu, and what it draws.
#pragma once

#include <QGroupBox>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "tests/render/recording_pen.h"
#include "tests/shell/main_window_fixture.h"

namespace shell {

class SetupAndList : public MainWindowTest {
 protected:
  void Show(const std::string& path) {
    package = path;
    Open({300, 300});
  }
  void ShowSample(const char* name) { Show(YAX_SAMPLES "/" + std::string(name) + ".yax"); }
  /// A package of its own: bonds of a base die at 2 x 2 and their wires.
  std::string Package(const std::vector<std::pair<std::string, std::string>>& namesAndTiers) {
    std::string text = "TECHNOLOGY WIRE_BOND\nCOMPL 2\nCOMPW 2\nCOMPZ 0.5\n";
    int y = 0;
    for (const auto& [name, tier] : namesAndTiers) {
      const std::string at = " 0." + std::to_string(++y);
      text += "CBP " + name + " 0.9" + at + " 0 0.1 0.1 0 R RECTANGLE\n";
      text += "SBP " + name + " 2" + at + " 0 0.1 0.1 0 RECTANGLE 0 " + tier + "\n";
      text += "WB " + name + " 0.9" + at + " 0 2" + at + " 0.5 0\n";
    }
    return PutFile(folder / "own.yax", text);
  }

  /// Right button on the view, then the entry.
  void Choose(const char* entry) {
    QTest::mouseClick(&View(), Qt::RightButton);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Menu()));
    QTest::mouseClick(&Menu(), Qt::LeftButton, {}, Menu().actionGeometry(&Entry(entry)).center());
    Settle();
  }
  QMainWindow& OpenSetup() { return OpenWindow("DoBondWireSetup", "Wire Bond Setup"); }
  QListView& OpenList() { return *OpenWindow("DoWireList", "Wire List").findChild<QListView*>(); }

  QMainWindow& OpenWindow(const char* entry, const QString& title) {
    Choose(entry);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->windowTitle() != title) continue;
      EXPECT_TRUE(QTest::qWaitForWindowActive(widget));
      Settle();
      return dynamic_cast<QMainWindow&>(*widget);
    }
    throw std::out_of_range(entry);
  }
  static void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  }

  // In the setup window.
  static QGroupBox* Frame(QMainWindow& setup, const QString& caption) {
    for (QGroupBox* frame : setup.findChildren<QGroupBox*>())
      if (frame->title() == caption + " ") return frame;
    throw std::out_of_range(caption.toStdString());
  }
  static QRadioButton* Option(QMainWindow& setup, const QString& frame, const QString& caption) {
    for (QRadioButton* option : Frame(setup, frame)->findChildren<QRadioButton*>())
      if (option->text() == caption) return option;
    throw std::out_of_range(caption.toStdString());
  }
  static QLineEdit* Value(QMainWindow& setup, const QString& frame) {
    return Frame(setup, frame)->findChild<QLineEdit*>();
  }
  static void Click(QAbstractButton* button, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(button, Qt::LeftButton, modifiers, {8, button->height() / 2});
    Settle();
  }
  static void Custom(QMainWindow& setup, const QString& frame, const QString& value) {
    Click(Option(setup, frame, "Custom"));
    QTest::mouseClick(Value(setup, frame), Qt::LeftButton);
    QTest::keyClick(Value(setup, frame), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(Value(setup, frame), value);
    QTest::keyClick(Value(setup, frame), Qt::Key_Tab);
  }
  static QPushButton* Button(QWidget& in, const QString& caption) {
    for (QPushButton* button : in.window()->findChildren<QPushButton*>())
      if (button->text() == caption) return button;
    throw std::out_of_range(caption.toStdString());
  }
  static void Press(QWidget& in, const QString& caption) { Click(Button(in, caption)); }
  /// With the key held down, as its own window sees it.
  static void PressHolding(Qt::Key key, Qt::KeyboardModifier bit, QWidget& in, const QString& caption) {
    QTest::keyPress(in.window()->windowHandle(), key, bit);
    Click(Button(in, caption), bit);
    QTest::keyRelease(in.window()->windowHandle(), key);
  }

  // In the list.
  static void ClickRow(QListView& list, int row, Qt::KeyboardModifiers modifiers = {}) {
    const QModelIndex index = list.model()->index(row, 0);
    list.scrollTo(index);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, list.visualRect(index).center());
    Settle();
  }
  static void Type(QListView& list, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&list, key, modifiers);
    Settle();
  }

  /// The wires that the view shows. The frame of a list compiled afresh must be the one that is there.
  const std::vector<model::WireStrip>& Wires() {
    Settle();
    const render::Picture shown = Form().FramePicture();
    Form().BuildCube();
    EXPECT_EQ(shown.Rgb, Form().FramePicture().Rgb) << "the view was not rebuilt";
    const render::Appearance appearance;
    pen = {};
    render::Scene({Form().Package(), Form().Settings(), appearance, Form().Selection()}, pen).DrawWires();
    return pen.Strips;
  }
  std::size_t WireCount() { return Wires().size(); }

  /// True when exactly the wires of these names are drawn: each by its two ends.
  bool Draws(const std::function<bool(const std::string& name)>& expected) {
    std::vector<std::array<float, 4>> ends, drawn;
    const model::Package& package = Form().Package();
    for (const auto* bonds : {&package.Bonds, &package.SDBonds})
      for (const model::BondRec& bond : *bonds)
        if ((bond.WireStartX != 0.0F || bond.WireStartY != 0.0F) && expected(bond.Name))
          ends.push_back({bond.WireStartX, -bond.WireStartY, bond.WireEndX, -bond.WireEndY});
    for (const model::StitchRec& stitch : package.Stitches)
      if (expected(stitch.Name)) ends.push_back({stitch.X1, -stitch.Y1, stitch.X2, -stitch.Y2});
    for (const model::WireStrip& strip : Wires())
      drawn.push_back({strip[0].X, strip[0].Z, strip[6].X, strip[6].Z});
    return drawn == ends;
  }
  bool Draws(const std::set<std::string>& names) {
    return Draws([&](const std::string& name) { return names.contains(name); });
  }
  static bool Every(const std::string&) { return true; }

  /// "base 0.5 0.28 stack ...": rise and level run of each kind's loops, in scene units.
  std::string Loops() {
    const model::Package& package = Form().Package();
    const std::vector<model::WireStrip>& wires = Wires();
    const auto shapes = [&](std::size_t from, std::size_t count) {
      std::set<std::string> texts;
      for (std::size_t i = from; i < from + count; ++i) {
        const model::WireStrip& wire = wires.at(i);
        const double run = std::hypot(double(wire[5].X - wire[0].X), double(wire[5].Z - wire[0].Z));
        texts.insert(" " + NumberText(double(wire[5].Y - wire[0].Y)) + " " + NumberText(run));
      }
      return texts.size() == 1 ? *texts.begin() : " " + std::to_string(texts.size()) + " shapes";
    };
    const auto wired = [](const model::Table<model::BondRec>& bonds) {
      return static_cast<std::size_t>(std::count_if(bonds.begin(), bonds.end(), [](const auto& bond) {
        return bond.WireStartX != 0.0F || bond.WireStartY != 0.0F;
      }));
    };
    const std::size_t base = wired(package.Bonds), stack = wired(package.SDBonds);
    EXPECT_EQ(wires.size(), base + stack + package.Stitches.Count());
    return "base" + shapes(0, base) + " stack" + shapes(base, stack) + " stitch" +
           shapes(base + stack, package.Stitches.Count());
  }

  RecordingPen pen;
};

}  // namespace shell
