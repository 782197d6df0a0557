/// A picture in memory.
#pragma once

#include <cstdint>
#include <vector>

namespace render {

struct Picture {
  int Width = 0;
  int Height = 0;
  std::vector<std::uint8_t> Rgb;  ///< 3 bytes a pixel, the top row first, without padding
};

}  // namespace render
