/// The named colours of the scene's faces.
#pragma once

#include <array>
#include <string_view>

namespace model {

/// Red, green, blue, each 0 to 1.
struct Colour {
  float Red = 0.0F, Green = 0.0F, Blue = 0.0F;
};

/// The colour of an exact name; black for any name that the table does not have.
Colour ColourOf(std::string_view name);

}  // namespace model
