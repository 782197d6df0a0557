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

/// An application-wide event filter for wheel events, whichever window of the program is under the pointer.
/// Apart from ViewInput, which would get its own events twice.
class WheelHook final : public QObject {
 public:
  model::Callback<const QWheelEvent&> Turned;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

/// An event filter for two places: the view (mouse) and the main window's native window (keys, before any
/// control gets them).
class ViewInput final : public QObject {
 public:
  ViewInput(MainForm& form, ProgramEnd& end, QWidget& view);

  /// Needs  the main window to be created
  void WatchKeysOf(QWindow* window);
  void HookWheel();
  void UnhookWheel();

  /// Opens the command menu at the view's centre, for users without a mouse.
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
