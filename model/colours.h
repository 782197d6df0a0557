/// The named colours of the scene's faces.
#pragma once

#include <array>
#include <string_view>

namespace model {

/// Red, green, blue, each 0 to 1.
struct Colour {
  float Red = 0.0F, Green = 0.0F, Blue = 0.0F;
};

/// The colour of this exact name; black for an unknown name.
Colour ColourOf(std::string_view name);

}  // namespace model
