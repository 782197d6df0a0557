/// The drawing target of the view: a window, or memory.
#pragma once

#include "render/picture.h"

namespace render::gl {

class GlSurface {
 public:
  virtual ~GlSurface() = default;

  /// Replaces the context by a fresh one and makes it current; the old one's lists go with it.
  /// Returns false when there is no usable format: double buffer, 24 bits of depth, fixed functions.
  virtual bool CreateContext() = 0;
  /// Makes the context current again; false when there is none.
  virtual bool MakeCurrent() = 0;
  /// Whether a frame can be seen: a window may not be on the screen yet.
  virtual bool IsShown() const = 0;
  /// Shows what was drawn.
  virtual void SwapBuffers() = 0;
  virtual void DeleteContext() = 0;
  virtual PixelSize Size() const = 0;
};

}  // namespace render::gl
