/// Reading a frame back from the back buffer.
#pragma once

#include "render/gl_surface.h"
#include "render/picture.h"

namespace render {

/// The frame just drawn, before it is swapped: windows over it or a missing screen do not matter.
/// Needs   current context
Picture ReadFrame(const PixelSize& size);

}  // namespace render
