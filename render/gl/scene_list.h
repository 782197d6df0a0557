/// The display list that holds the whole picture.
#pragma once

#include <cstdint>

#include "render/scene.h"

namespace render::gl {

/// A display-list name in the 16 bits in which the program keeps it.
/// Faults  Overflow above 32,767
std::int16_t ListNumber(unsigned name);

class SceneList {
 public:
  /// Compiles the scene into a fresh list, drawing it once, and makes that list the one shown.
  /// Needs   current context, no open list or primitive
  /// Faults  those of the drawing; then no list is open and the previous one is still shown
  void BuildCube(Scene& scene);

  /// The same list without drawing it: for a picture of one frame.
  void CompileCube(Scene& scene);

  /// Replays the list shown; nothing when there is none.
  void Call() const;

  /// Lists belong to a context: a new one starts with none.
  void Forget() { number_ = 0; }

  std::int16_t Number() const { return number_; }

 private:
  void Build(Scene& scene, unsigned mode);

  std::int16_t number_ = 0;
};

}  // namespace render::gl
