/// Tells exposures that ask for a frame from those that a frame has mended already.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>

class QWindow;

namespace shell::ui {

/// A window hears of the exposure that its new size brings only after the load that the size brings too, and
/// after that load's frame. Painting again would show the same picture at double cost. The display numbers
/// all requests and says with each event which was the last one that it had seen: what it tells of a time
/// before the last frame lies under that frame. Where the display is not X, every exposure is due.
class ExposureWatch final : public QAbstractNativeEventFilter {
 public:
  explicit ExposureWatch(const QWindow& window);
  ~ExposureWatch() override;

  /// Call just before a frame for the whole window goes to the display.
  void FrameFollows();
  /// Whether the display has told anything of the window since the last frame.
  bool Due() const { return due_; }

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  const QWindow& window_;
  std::uint32_t frame_ = 0;  ///< number of the last frame's first request
  bool due_ = true;
};

}  // namespace shell::ui
