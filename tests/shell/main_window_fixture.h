/// A real main window on a small package, with dialogs, boxes and the program's end under the test's hand.
#pragma once

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shell/gl_view.h"
#include "shell/main_window.h"
#include "shell/view_controls.h"
#include "tests/temporary_folder.h"

namespace shell {

/// A user who knows beforehand what to answer.
class AnsweringDialog final : public setup::FileDialog {
 public:
  std::optional<std::string> ShowOpen(const setup::FileDialogRequest& request) override {
    return Answer(request);
  }
  std::optional<std::string> ShowSave(const setup::FileDialogRequest& request) override {
    return Answer(request);
  }

  std::optional<std::string> answer;  ///< empty: cancelled
  std::vector<setup::FileDialogRequest> asked;
  std::function<void()> asking;  ///< what the user sees while the dialog is open

 private:
  std::optional<std::string> Answer(const setup::FileDialogRequest& request) {
    asked.push_back(request);
    if (asking) asking();
    return answer;
  }
};

class MainWindowTest : public testing::Test {
 protected:
  /// A die, from above twice as high as it is wide, and nothing else.
  static constexpr char kDie[] = "COMPL 8\nCOMPW 4\nCOMPZ 1\n";

  MainWindowTest() {
    end.showCritical = [this](const std::string& title, const std::string& text) {
      boxes.push_back(title + ": " + text);
    };
    end.leave = [this](int with) {
      status = with;
      if (window) window->hide();
    };
    PutFile(package, kDie);
  }

  void Open(QSize size = {500, 400}) {
    window = std::make_unique<MainWindow>(StartUp{folder / "", '"' + package + '"'}, end, &dialog);
    window->resize(size);
    window->Load();
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  MainForm& Form() { return window->Form(); }
  Navigation& Nav() { return window->Form().Navigator(); }
  GlView& View() { return *window->findChild<GlView*>(); }
  DummyBox& Dummy() { return *window->findChild<DummyBox*>(); }
  QMenu& Menu() { return *window->findChild<QMenu*>("DoMnu"); }
  QAction& Entry(const char* name) { return *Menu().findChild<QAction*>(name); }

  template <class Control>
  Control& Named(const char* name) {
    for (Control* control : window->findChildren<Control*>())
      if (control->accessibleName() == name || control->property("text") == QString(name)) return *control;
    throw std::out_of_range(name);
  }

  // Input comes the way the toolkit's platform delivers it: to the native windows.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window->windowHandle(), key, modifiers);
  }
  void Mouse(QTest::MouseAction action, QPoint at, Qt::MouseButton button = Qt::NoButton,
             Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseEvent(action, View().windowHandle(), button, modifiers, at);
  }
  static void Wheel(QWidget& over, QPoint delta, Qt::KeyboardModifiers modifiers = {}) {
    const QPointF at = over.rect().center();
    QWheelEvent event(at, over.mapToGlobal(at), {}, delta, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QWindow* const native =
        over.windowHandle() != nullptr ? over.windowHandle() : over.window()->windowHandle();
    QApplication::sendEvent(native, &event);
  }

  /// What differs from the first frame: "x1 y-1 z4 look10 turn10 pitch91 yaw1", or less.
  std::string Changes() {
    const render::Camera& camera = Nav().Camera;
    std::string text;
    const auto add = [&text](const char* name, long value, long first) {
      if (value != first) text += std::string(text.empty() ? "" : " ") + name + std::to_string(value);
    };
    add("x", camera.CamX, 0);
    add("y", camera.CamY, 0);
    add("z", camera.CamZ, 5);
    add("look", camera.CamLook, 0);
    add("turn", std::lround((double(camera.CamYaw) - 1.56) * 180 / 3.142), 0);
    add("pitch", std::lround(Nav().Rotation.RotPitch), 90);
    add("yaw", std::lround(Nav().Rotation.RotYaw), 0);
    return text;
  }
  void Restart() {
    Nav().ResetCamera();
    Nav().ResetRotation();
    Nav().Mouse = {};
  }

  /// The model-view matrix that the last frame left: the camera's alone.
  std::array<double, 16> CameraMatrix() {
    std::array<double, 16> matrix{};
    EXPECT_TRUE(View().MakeCurrent());
    glGetDoublev(GL_MODELVIEW_MATRIX, matrix.data());
    return matrix;
  }

  TemporaryFolder folder;
  std::string package = folder / "a package \xC3\xA4.yax";
  ProgramEnd end;
  std::vector<std::string> boxes;
  std::optional<int> status;
  AnsweringDialog dialog;
  std::unique_ptr<MainWindow> window;
};

}  // namespace shell
