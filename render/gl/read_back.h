/// Reading a frame back from the back buffer.
#pragma once

#include <cstdint>

#include "render/gl/gl_surface.h"
#include "render/picture.h"

namespace render::gl {

/// The frame just drawn, before the swap: windows above it or a missing screen do not matter.
/// Needs   current context
Picture ReadFrame(const PixelSize& size);

/// Some rows of a frame of this size, counted from the top, into 3 bytes a pixel without padding.
/// Reads   the read buffer that is set; `topRowFirst` says whether its rows run down or, as usual, up
void ReadRows(const PixelSize& size, bool topRowFirst, int first, int count, std::uint8_t* rgb);

}  // namespace render::gl
