/// The interface that draws the scene's shapes: with OpenGL on the screen, otherwise in tests and exports.
#pragma once

#include <array>

#include "model/colours.h"
#include "model/record_place.h"

namespace model {

/// A vertex or direction in the scene: y is up.
struct SceneVector {
  float X = 0.0F, Y = 0.0F, Z = 0.0F;
};

/// A lit face; its corners run clockwise when seen from where the normal points to.
struct Face {
  std::array<SceneVector, 4> Corners;
  SceneVector Normal;
  Colour Paint;
};

/// The rim of a horizontal disc, from 0 to 360 degrees in steps of 10.
using DiscRim = std::array<SceneVector, 37>;

/// The vertices of one bond wire.
using WireStrip = std::array<SceneVector, 7>;

/// The part of the package that a shape belongs to.
enum class Part { Die, StackedDie, DieAttach, Rings, DiePad, SubstratePad, Wire, Stitch };

class Pen {
 public:
  virtual ~Pen() = default;

  /// Announces the part to which the next shapes belong, with the record of a pad, wire or stitch. Only pens
  /// that sort the shapes need it.
  virtual void Begin(Part /*part*/, const RecordPlace& /*record*/) {}

  virtual void Quad(const Face& face) = 0;
  /// A disc takes the colour and normal of the quad before it.
  virtual void Disc(const DiscRim& rim) = 0;
  virtual void Strip(const WireStrip& points, const Colour& paint) = 0;
};

}  // namespace model
