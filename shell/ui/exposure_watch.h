/// Decides whether an exposure needs a frame or a later frame has already covered it.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>

class QWindow;

namespace shell::ui {

/// A resize reloads and draws a frame; the Expose for that resize arrives later. X stamps each event with the
/// last request processed, so an event older than our last frame needs no repaint. Without X every exposure
/// needs a frame.
class ExposureWatch final : public QAbstractNativeEventFilter {
 public:
  explicit ExposureWatch(const QWindow& window);
  ~ExposureWatch() override;

  /// Call just before each frame of the whole window is sent.
  void FrameFollows();
  /// Whether an exposure was sent after the last frame.
  bool Due() const { return due_; }

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  const QWindow& window_;
  std::uint32_t frame_ = 0;  ///< number of the last frame's first request
  bool due_ = true;
};

}  // namespace shell::ui
