/// Where a measuring program's GL calls go: Mesa, or nowhere. Each program links one of the two.
#pragma once

#include <memory>

#include "render/gl/gl_surface.h"

namespace bench {

/// A current context, prepared for drawing the scene.
std::unique_ptr<render::gl::GlSurface> OpenDrawingPlace();

}  // namespace bench
