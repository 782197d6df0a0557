/// A picture in memory, as the frame hands it over for saving and printing.
#pragma once

#include <cstdint>
#include <vector>

namespace render {

struct Picture {
  int Width = 0, Height = 0;      ///< device pixels
  std::vector<std::uint8_t> Rgb;  ///< three bytes a pixel, rows without padding, top row first
};

}  // namespace render
