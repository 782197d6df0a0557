/// A drawing target inside a context, for pictures larger than its surface can be.
#pragma once

#include <cstdint>

#include "render/gl/gl_surface.h"

namespace render::gl {

/// It lives as long as the context that was current when it was bound.
class Framebuffer {
 public:
  /// Redirects all drawing to memory of this size; the pixels are the same as on a surface.
  /// Needs   current context
  /// Returns false when there is not enough memory, or no framebuffer objects
  bool Bind(const PixelSize& size);

  /// Rows of the frame just drawn, as ReadRows of a surface gives them.
  void ReadRows(int first, int count, std::uint8_t* rgb) const;

 private:
  PixelSize size_;
  bool topRowFirst_ = false;
};

}  // namespace render::gl
