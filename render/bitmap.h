/// A picture as the bytes of a Windows bitmap file.
#pragma once

#include <string>

#include "render/picture.h"

namespace render {

/// The whole file: 24 bits a pixel, uncompressed.
/// Needs   Rgb holds 3 * Width * Height bytes
std::string BitmapBytes(const Picture& picture);

}  // namespace render
