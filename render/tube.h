/// A wire as a solid.
#pragma once

#include "model/pen.h"
#include "render/mesh.h"

namespace render {

inline constexpr int kTubeSides = 8;

/// Adds a closed tube along the points to a mesh; points that coincide with the one before count once, and
/// a wire that is a single point adds nothing. Its edges lie `radius` from the wire's line.
void AddTube(const model::WireStrip& points, double radius, Mesh& mesh);

}  // namespace render
