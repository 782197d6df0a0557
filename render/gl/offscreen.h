/// A surface in memory, for pictures and tests without a display.
#pragma once

#include <cstdint>
#include <memory>

#include "render/gl/gl_surface.h"

namespace render::gl {

/// EGL without a window system: Mesa's surfaceless platform, else the first device that works. Pictures
/// larger than a pixel buffer go into a framebuffer object, whose pixels are the same.
class OffscreenSurface final : public GlSurface {
 public:
  explicit OffscreenSurface(const PixelSize& size);
  OffscreenSurface(const OffscreenSurface&) = delete;
  OffscreenSurface& operator=(const OffscreenSurface&) = delete;
  ~OffscreenSurface() override;

  /// Returns false without usable GL, for a size beyond Largest(), and without enough memory.
  bool CreateContext() override;
  bool MakeCurrent() override;
  bool IsShown() const override { return true; }
  void SwapBuffers() override;
  void DeleteContext() override;
  PixelSize Size() const override { return size_; }

  /// The largest picture that this GL draws; nothing before CreateContext has found a usable one.
  PixelSize Largest() const { return largest_; }
  /// Rows of the frame just drawn, counted from the top, into 3 bytes a pixel without padding.
  /// Needs   the context is current
  void ReadRows(int first, int count, std::uint8_t* rgb) const;

 private:
  struct Egl;

  PixelSize size_;
  PixelSize largest_;
  std::unique_ptr<Egl> egl_;
};

}  // namespace render::gl
