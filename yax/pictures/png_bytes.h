/// A picture as the bytes of a PNG file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "render/picture.h"

namespace yax {

/// Reads rows of a picture, counted from the top, with 3 bytes per pixel and no padding.
using RowReader = std::function<void(int first, int count, std::uint8_t* rgb)>;

/// The whole file: 8 bits per component, no alpha. Reads the picture in bands, so it is never completely in
/// memory.
std::string PngBytes(const render::PixelSize& size, const RowReader& read);

}  // namespace yax
