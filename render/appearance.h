/// The background, which also decides the colours of die tops, pad tops and wires.
#pragma once

#include <cstdint>

namespace render {

struct Appearance {
  bool BlackBackground = true;
  std::int16_t BackRed = 0, BackGreen = 0, BackBlue = 0;  ///< clear colour, each 0 or 1
};

}  // namespace render
