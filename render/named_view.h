/// Named views, from an eye that sees everything drawn.
#pragma once

#include <optional>
#include <vector>

#include "model/pen.h"
#include "render/camera.h"
#include "render/eye.h"
#include "render/picture.h"

namespace render {

/// Front is seen from the package's negative y, left from its negative x; top and front show x to the right.
enum class NamedView { Top, Bottom, Front, Back, Left, Right, Iso };

/// Where a picture is taken from.
struct Viewpoint {
  std::optional<NamedView> View;  ///< in place of everything below
  // The window's start view.
  render::Camera Camera;
  ModelRotation Rotation{.RotPitch = 90.0F};
};

/// Draws nothing; keeps every point that would be drawn.
class FitPen final : public model::Pen {
 public:
  void Quad(const model::Face& face) override { Take(face.Corners); }
  void Disc(const model::DiscRim& rim) override { Take(rim); }
  void Strip(const model::WireStrip& points, const model::Colour&) override { Take(points); }

  /// The nearest eye of a view that sees all of them with a small margin, in the middle of a picture of this
  /// size.
  Eye Fit(NamedView view, const PixelSize& size) const;

 private:
  template <class Points>
  void Take(const Points& points) {
    points_.insert(points_.end(), points.begin(), points.end());
  }

  std::vector<model::SceneVector> points_;
};

}  // namespace render
