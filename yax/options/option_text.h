/// Converts the texts of options to values.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "render/picture.h"

namespace yax {

// Every routine takes the option's name for its message.
// Faults  Unusable when the text is not such a value

/// A number within the range of a single, without further text.
float NumberOf(std::string_view option, std::string_view text);

/// The same in double precision.
double DoubleOf(std::string_view option, std::string_view text);

/// A whole number of 16 bits.
std::int16_t Whole16Of(std::string_view option, std::string_view text);

/// "X,Y,Z", each a whole number of 16 bits.
std::array<std::int16_t, 3> Whole16TripleOf(std::string_view option, std::string_view text);

/// "WIDTHxHEIGHT" in pixels, each at least 1.
render::PixelSize SizeOf(std::string_view option, std::string_view text);

}  // namespace yax
