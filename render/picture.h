/// A picture in memory, and its size.
#pragma once

#include <cstdint>
#include <vector>

namespace render {

/// Pixels of the device.
struct PixelSize {
  int Width = 0;
  int Height = 0;
  bool operator==(const PixelSize&) const = default;
};

struct Picture {
  int Width = 0;
  int Height = 0;
  std::vector<std::uint8_t> Rgb;  ///< 3 bytes a pixel, the top row first, without padding
};

}  // namespace render
