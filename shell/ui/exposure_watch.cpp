#include "shell/ui/exposure_watch.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWindow>

// Last: its macros break other headers.
#include <X11/Xlib.h>

namespace shell::ui {

namespace {

/// The window that Qt exposes because of this event. Qt also does so when a window shrinks.
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
  // Xlib does not see requests that Qt sent over XCB until it sends one itself.
  XNoOp(x11->display());
  frame_ = static_cast<std::uint32_t>(XNextRequest(x11->display()));
  due_ = false;
}

bool ExposureWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (eventType != "xcb_generic_event_t") return false;
  const auto& event = *static_cast<const xcb_generic_event_t*>(message);
  // winId() would create the window again after it was destroyed.
  if (window_.handle() == nullptr || WindowOf(event) != window_.winId()) return false;
  // Request numbers wrap.
  const bool afterFrame = static_cast<std::int32_t>(event.full_sequence - frame_) >= 0;
  due_ = due_ || afterFrame;
  // Otherwise Qt would merge later exposures, which this filter has not seen yet, into this one.
  return !due_ && (event.response_type & 0x7F) == XCB_EXPOSE && window_.isExposed();
}

}  // namespace shell::ui
