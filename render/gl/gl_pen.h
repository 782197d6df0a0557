/// The pen that draws with OpenGL, immediately or into the list being compiled.
#pragma once

#include "model/pen.h"

namespace render::gl {

/// Needs  a current context and no open primitive; each shape opens and closes its own
class GlPen final : public model::Pen {
 public:
  void Quad(const model::Face& face) noexcept override;
  void Disc(const model::DiscRim& rim) noexcept override;
  void Strip(const model::WireStrip& points, const model::Colour& paint) noexcept override;
};

}  // namespace render::gl
