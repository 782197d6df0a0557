/// A real main window on a small package, with dialogs, boxes and the program's end in the test's control.
#pragma once

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <memory>
#include <vector>

#include "shell/ui/gl_view.h"
#include "shell/ui/main_window.h"
#include "tests/find_control.h"
#include "tests/setup/answering_dialog.h"
#include "tests/shell/navigation/navigation_fixture.h"
#include "tests/temporary_folder.h"

namespace shell {

class MainWindowTest : public testing::Test {
 protected:
  /// A die, from above twice as high as it is wide, and nothing else.
  static constexpr char kDie[] = "COMPL 8\nCOMPW 4\nCOMPZ 1\n";

  MainWindowTest() {
    end.ShowCritical = [this](const std::string& title, const std::string& text) {
      boxes.push_back(title + ": " + text);
    };
    end.Leave = [this](int with) {
      status = with;
      if (window) window->hide();
    };
    PutFile(package, kDie);
  }

  void Open(QSize size = {500, 400}) {
    window = std::make_unique<ui::MainWindow>(StartUp{folder / "", '"' + package + '"'}, end, asks);
    window->resize(size);
    window->Load();
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  MainForm& Form() { return window->Form(); }
  navigation::Navigation& Nav() { return window->Form().Navigator(); }
  ui::GlView& View() { return *window->findChild<ui::GlView*>(); }
  QMenu& Menu() { return *window->findChild<QMenu*>("DoMnu"); }
  QAction& Entry(const char* name) { return *Menu().findChild<QAction*>(name); }

  /// The shown window of this title beside the main one, or null.
  static QWidget* Shown(const QString& title) {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->isVisible() && widget->windowTitle() == title) return widget;
    return nullptr;
  }

  // Input goes to the native windows, where Qt's platform delivers it.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window->windowHandle(), key, modifiers);
  }
  void Mouse(QTest::MouseAction action, QPoint at, Qt::MouseButton button = Qt::NoButton,
             Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseEvent(action, View().windowHandle(), button, modifiers, at);
  }

  std::string Changes() { return Moves(Nav()); }
  void Restart() {
    Nav().ResetCamera();
    Nav().ResetRotation();
    Nav().Mouse = {};
  }

  TemporaryFolder folder;
  std::string package = folder / "a package \xC3\xA4.yax";
  ProgramEnd end;
  std::vector<std::string> boxes;
  std::optional<int> status;
  setup::AnsweringDialog dialog;
  setup::FileDialog* asks = &dialog;  ///< null: Qt's own
  std::unique_ptr<ui::MainWindow> window;
};

}  // namespace shell
