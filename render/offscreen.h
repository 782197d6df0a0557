/// A surface in memory, for pictures and tests without a display.
#pragma once

#include <memory>

#include "render/gl_surface.h"

namespace render {

/// EGL without a window system: Mesa's surfaceless platform, else the first device.
class OffscreenSurface final : public GlSurface {
 public:
  explicit OffscreenSurface(const PixelSize& size);
  OffscreenSurface(const OffscreenSurface&) = delete;
  OffscreenSurface& operator=(const OffscreenSurface&) = delete;
  ~OffscreenSurface() override;

  bool CreateContext() override;
  bool MakeCurrent() override;
  void SwapBuffers() override;
  void DeleteContext() override;
  PixelSize Size() const override { return size_; }

 private:
  struct Egl;
  PixelSize size_;
  std::unique_ptr<Egl> egl_;
};

}  // namespace render
