#include "shell/stale_exposures.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWindow>

namespace shell {

StaleExposures::StaleExposures(const QWindow& window) : window_(window) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

StaleExposures::~StaleExposures() { QCoreApplication::instance()->removeNativeEventFilter(this); }

void StaleExposures::FrameFollows() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr) return;
  frame_ = xcb_no_operation(x11->connection()).sequence;
  anyFrame_ = true;
}

bool StaleExposures::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (!anyFrame_ || !window_.isExposed() || eventType != "xcb_generic_event_t") return false;
  const auto& event = *static_cast<const xcb_generic_event_t*>(message);
  if ((event.response_type & 0x7F) != XCB_EXPOSE) return false;
  if (static_cast<const xcb_expose_event_t*>(message)->window != window_.winId()) return false;
  // The numbers wrap round.
  return static_cast<std::int32_t>(event.full_sequence - frame_) < 0;
}

}  // namespace shell
