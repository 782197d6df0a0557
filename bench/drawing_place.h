/// Where the GL calls of a measuring program go: to Mesa, or to empty routines. Each program links one of the
/// two.
#pragma once

#include <memory>

#include "render/gl/gl_surface.h"

namespace bench {

/// A current context, prepared for drawing the scene.
std::unique_ptr<render::gl::GlSurface> OpenDrawingPlace();

}  // namespace bench
