#include <stdexcept>

#include "bench/drawing_place.h"
#include "render/gl/frame.h"
#include "render/gl/offscreen.h"

namespace bench {

std::unique_ptr<render::gl::GlSurface> OpenDrawingPlace() {
  auto surface = std::make_unique<render::gl::OffscreenSurface>(render::PixelSize{1280, 960});
  if (!surface->CreateContext()) throw std::runtime_error("there is no usable GL");
  render::gl::SetUpView(surface->Size(), {});
  return surface;
}

}  // namespace bench
