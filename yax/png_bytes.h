/// A picture as the bytes of a PNG file.
#pragma once

#include <string>

#include "render/picture.h"

namespace yax {

/// The whole file: 8 bits a component, no alpha.
std::string PngBytes(const render::Picture& picture);

}  // namespace yax
