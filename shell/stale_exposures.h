/// Keeps from a window the exposures that a frame has mended already.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>

class QWindow;

namespace shell {

/// A window that grows is exposed by the display at once, but hears of it only after the load that its new
/// size brings, and after that load's frame. Painting once more would show the same frame at double cost.
/// The display numbers requests and says with each exposure which was the last one it had seen: what was
/// exposed before a frame's number is under that frame. Where the display is not X, every exposure counts.
class StaleExposures final : public QAbstractNativeEventFilter {
 public:
  explicit StaleExposures(const QWindow& window);
  ~StaleExposures() override;

  /// Call just before a frame for the whole window goes to the display.
  void FrameFollows();

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  const QWindow& window_;
  std::uint32_t frame_ = 0;  ///< number of the request just before the last frame
  bool anyFrame_ = false;
};

}  // namespace shell
