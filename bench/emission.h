/// The GL calls of a scene, recorded in advance: the yardstick for building its list.
#pragma once

#include <array>
#include <vector>

#include "model/pen.h"
#include "render/scene.h"

namespace bench {

/// Records the scene's shapes, then makes the same calls as the viewer's pen without computing anything.
class Emission final : public model::Pen {
 public:
  explicit Emission(const render::SceneInputs& inputs);

  /// Makes the calls.
  /// Needs   a current context
  void Emit() const;
  /// Compiles and draws the calls as a fresh list, and empties the previous one.
  void BuildList();
  void Forget() { list_ = 0; }
  unsigned List() const { return list_; }

  void Quad(const model::Face& face) override;
  void Disc(const model::DiscRim& rim) override;
  void Strip(const model::WireStrip& points, const model::Colour& paint) override;

 private:
  enum class Shape { kQuad, kDisc, kStrip };
  struct Run {
    Shape shape;
    std::size_t count;
  };
  struct Quads {
    std::array<float, 4> material;
    model::Face face;
  };
  struct Strips {
    std::array<float, 4> material;
    model::WireStrip points;
  };

  void Count(Shape shape);

  std::vector<Run> runs_;
  std::vector<Quads> quads_;
  std::vector<model::DiscRim> discs_;
  std::vector<Strips> strips_;
  unsigned list_ = 0;
};

}  // namespace bench
