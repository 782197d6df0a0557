/// Draws a package as a few meshes for a page and records the triangles of each wire.
#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "render/mesh_pen.h"
#include "render/scene.h"

namespace yax {

/// The triangles of a wire: `Count` triangles of a mesh, from number `First` on.
struct WireTriangles {
  std::size_t Mesh = 0, First = 0, Count = 0;
};

struct PageModel {
  std::vector<render::MeshGroup> Groups;  ///< a group for each kind of thing
  std::vector<model::Colour> Light;       ///< the colour on white of each mesh, through all groups
  std::map<model::RecordPlace, WireTriangles> Wires;
};

/// Draws the package with its colours on black and records its colours on white.
/// Units   `wireRadius` in scene units
/// Faults  as Scene::DrawPackage
PageModel ModelOf(const render::SceneInputs& inputs, double wireRadius);

}  // namespace yax
