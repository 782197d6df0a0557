#include "shell/ui/held_keys.h"

#include <xcb/xcb.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>

namespace shell::ui {

namespace {

/// The same number with and without Shift: Qt's key code of "=" changes with Shift.
quint32 CodeOf(const QKeyEvent& key) {
  return key.nativeScanCode() != 0 ? key.nativeScanCode() : static_cast<quint32>(key.key());
}

bool ClosesPopup(int key) { return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter; }

/// The open list or other popup that takes the key. A completer's list takes only the keys that close it; the
/// text box below it gets the rest.
const QObject* PopupThatTakes(int key) {
  const QWidget* const popup = QApplication::activePopupWidget();
  return popup == nullptr || (popup->focusProxy() != nullptr && !ClosesPopup(key)) ? nullptr : popup;
}

/// Null for an open menu or submenu, which takes the keys of the window below it.
const QObject* TakerOf(const QKeyEvent& key, const QObject* window) {
  if (qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr) return nullptr;
  const QObject* const popup = PopupThatTakes(key.key());
  return popup != nullptr ? popup : window;
}

}  // namespace

HeldKeys::HeldKeys() {
  qApp->installEventFilter(this);
  qApp->installNativeEventFilter(this);
}

HeldKeys::~HeldKeys() { qApp->removeNativeEventFilter(this); }

/// X sends a repeat as a release and a press with equal time stamps. Qt's flag misses it when the press
/// reaches its queue a moment later.
bool HeldKeys::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (eventType != "xcb_generic_event_t") return false;
  const int type = static_cast<const xcb_generic_event_t*>(message)->response_type & 0x7F;
  if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE) return false;
  const auto& event = *static_cast<const xcb_key_press_event_t*>(message);
  XKey& key = xKeys_[event.detail];
  if (type == XCB_KEY_PRESS)
    key.Repeats = key.Released == event.time;
  else
    key.Released = event.time;
  return false;
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
  // Another program may now get the key releases.
  if (event->type() == QEvent::ApplicationStateChange) takers_.clear();
  // The window passes the event on to its widgets.
  if (event->type() != QEvent::KeyPress || !watched->isWindowType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const quint32 code = CodeOf(key);
  const QObject* const taker = TakerOf(key, watched);
  const bool repeats =
      key.isAutoRepeat() || (key.nativeScanCode() < xKeys_.size() && xKeys_[key.nativeScanCode()].Repeats);
  if (repeats) return !takers_.contains(code) || takers_[code] != taker;
  takers_.insert(code, taker);
  return false;
}

}  // namespace shell::ui
