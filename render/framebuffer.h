/// A drawing target inside a context, for pictures larger than its surface can be.
#pragma once

#include "render/gl_surface.h"
#include "render/picture.h"

namespace render {

/// It lives as long as the context that was current when it was bound.
class Framebuffer {
 public:
  /// Makes all drawing go into memory of this size, with the pixels that a surface would have.
  /// Needs   current context
  /// Returns false when there is not enough memory, or no framebuffer objects
  bool Bind(const PixelSize& size);

  /// The frame just drawn.
  Picture Read() const;

 private:
  PixelSize size_;
  bool topRowFirst_ = false;
};

}  // namespace render
