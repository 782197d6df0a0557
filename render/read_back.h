/// Reading a frame back from the back buffer.
#pragma once

#include "render/gl_surface.h"
#include "render/picture.h"

namespace render {

/// The frame just drawn, before it is swapped: windows over it or a missing screen do not matter.
/// Needs   current context
Picture ReadFrame(const PixelSize& size);

/// The picture in the read buffer that is set, whose rows run down from the top or up from the bottom.
Picture ReadRows(const PixelSize& size, bool topRowFirst);

}  // namespace render
