/// A surface as triangles.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/pen.h"

namespace render {

/// Scene units; a triangle's corners run counter-clockwise when seen from outside.
struct Mesh {
  std::vector<model::SceneVector> Points;
  std::vector<std::array<std::uint32_t, 3>> Triangles;
};

void AddFace(const model::Face& face, Mesh& mesh);
void AddDisc(const model::DiscRim& rim, Mesh& mesh);

}  // namespace render
