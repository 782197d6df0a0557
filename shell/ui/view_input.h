/// Passes Qt's input events to the main window's handlers: mouse over the view, keys, wheel.
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

/// An application-wide event filter for wheel events over any window of the program. It is separate from
/// ViewInput, which would otherwise get its own events twice.
class WheelHook final : public QObject {
 public:
  model::Callback<const QWheelEvent&> Turned;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

/// An event filter on the view (mouse) and on the main window's native window (keys, before any control gets
/// them).
class ViewInput final : public QObject {
 public:
  ViewInput(MainForm& form, ProgramEnd& end, QWidget& view);

  /// Needs  the main window's native window
  void WatchKeysOf(QWindow* window);
  void HookWheel();
  void UnhookWheel();

  /// Opens the command menu at the view's centre, for the keyboard.
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
