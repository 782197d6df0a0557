#include "shell/ui/exposure_watch.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWindow>

// Last, for its macros.
#include <X11/Xlib.h>

namespace shell::ui {

namespace {

/// The window that an event is about, of those events with which the toolkit exposes one: it does so on its
/// own when a window shrinks.
xcb_window_t WindowOf(const xcb_generic_event_t& event) {
  const void* const whole = &event;
  switch (event.response_type & 0x7F) {
    case XCB_EXPOSE:
      return static_cast<const xcb_expose_event_t*>(whole)->window;
    case XCB_MAP_NOTIFY:
      return static_cast<const xcb_map_notify_event_t*>(whole)->window;
    case XCB_CONFIGURE_NOTIFY:
      return static_cast<const xcb_configure_notify_event_t*>(whole)->window;
    default:
      return XCB_WINDOW_NONE;
  }
}

}  // namespace

ExposureWatch::ExposureWatch(const QWindow& window) : window_(window) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

ExposureWatch::~ExposureWatch() { QCoreApplication::instance()->removeNativeEventFilter(this); }

void ExposureWatch::FrameFollows() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr) return;
  // The library that frames go through learns of the toolkit's own requests only with its next one.
  XNoOp(x11->display());
  frame_ = static_cast<std::uint32_t>(XNextRequest(x11->display()));
  due_ = false;
}

bool ExposureWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (eventType != "xcb_generic_event_t") return false;
  const auto& event = *static_cast<const xcb_generic_event_t*>(message);
  // To ask a window that is gone for its number would make it anew.
  if (window_.handle() == nullptr || WindowOf(event) != window_.winId()) return false;
  // The numbers wrap round.
  const bool afterFrame = static_cast<std::int32_t>(event.full_sequence - frame_) >= 0;
  due_ = due_ || afterFrame;
  // The toolkit would take out of the queue, unseen here, what was exposed since, and count it to this one.
  return !due_ && (event.response_type & 0x7F) == XCB_EXPOSE && window_.isExposed();
}

}  // namespace shell::ui
