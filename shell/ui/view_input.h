/// Turns the toolkit's input events into the main window's handlers: mouse over the view, keys, wheel.
#pragma once

#include <QObject>

#include "model/callback.h"

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
class QWidget;
class QWindow;

namespace shell {
class MainForm;
class ProgramEnd;
}  // namespace shell

namespace shell::ui {

/// An event filter of the application that hears every turn of the wheel, whichever window of the program is
/// under the pointer. It is apart from ViewInput, which would hear its own events twice.
class WheelHook final : public QObject {
 public:
  model::Callback<const QWheelEvent&> Turned;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

/// An event filter for two places: the view (mouse) and the main window's native window (keys, which it so
/// sees before any control).
class ViewInput final : public QObject {
 public:
  ViewInput(MainForm& form, ProgramEnd& end, QWidget& view);

  /// Needs  the main window to be created
  void WatchKeysOf(QWindow* window);
  void HookWheel();
  void UnhookWheel();

  /// Opens the command menu at the view's middle, for those who have no mouse.
  void OpenMenuByKey();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool MouseEvent(QEvent* event);
  bool KeyEvent(const QKeyEvent& key, bool down);
  void WheelEvent(const QWheelEvent& wheel);

  MainForm& form_;
  ProgramEnd& end_;
  QWidget& view_;
  QWindow* keyWindow_ = nullptr;
  WheelHook hWheelHook_;
};

}  // namespace shell::ui
