/// A picture as the bytes of a PNG file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "render/picture.h"

namespace yax {

/// Gives rows of a picture, counted from the top, in 3 bytes a pixel without padding.
using RowReader = std::function<void(int first, int count, std::uint8_t* rgb)>;

/// The whole file: 8 bits a component, no alpha. The picture is read in bands, so it never is in memory as a
/// whole.
std::string PngBytes(const render::PixelSize& size, const RowReader& read);

}  // namespace yax
