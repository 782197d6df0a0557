/// Views with a name, from an eye that stands so that everything drawn is seen.
#pragma once

#include <array>
#include <vector>

#include "model/pen.h"
#include "render/gl/gl_surface.h"

namespace render {

/// A point or direction of the scene (y is up) in double precision.
using ScenePoint = std::array<double, 3>;

/// Angle of view from the lower to the upper edge of every picture, degrees.
inline constexpr double kFieldOfView = 60.0;

/// Front is seen from the package's negative y, left from its negative x; top and front show x to the right.
enum class NamedView { Top, Bottom, Front, Back, Left, Right, Iso };

/// An eye that no whole numbers bind.
struct Eye {
  ScenePoint Position{};
  ScenePoint Target{};
  ScenePoint Up{};
  double Near = 1.0;
  double Far = 2000.0;
};

/// Draws nothing; keeps every point that would be drawn.
class FitPen final : public model::Pen {
 public:
  void Quad(const model::Face& face) override { Take(face.Corners); }
  void Disc(const model::DiscRim& rim) override { Take(rim); }
  void Strip(const model::WireStrip& points, const model::Colour&) override { Take(points); }

  /// The nearest eye of a view that sees all of them with a small margin, in the middle of a picture of this
  /// size.
  Eye Fit(NamedView view, const gl::PixelSize& size) const;

 private:
  template <class Points>
  void Take(const Points& points) {
    points_.insert(points_.end(), points.begin(), points.end());
  }

  std::vector<model::SceneVector> points_;
};

}  // namespace render
