/// A package as meshes for a page: few of them, in which every wire can be found again.
#pragma once

#include <cstddef>
#include <vector>

#include "render/mesh_pen.h"
#include "render/scene.h"

namespace yax {

/// The triangles of a wire: in which of all meshes, and which of them.
struct WireTriangles {
  std::size_t Mesh = 0, First = 0, Count = 0;
};

struct PageModel {
  std::vector<render::MeshGroup> Groups;  ///< a group for each kind of thing
  std::vector<model::Colour> Light;  ///< of each mesh, the groups' meshes counted on, its colour on white
  std::vector<WireTriangles> Wires;  ///< in the order in which they are drawn
};

/// Draws the package as on black.
/// Units   `wireRadius` in scene units
/// Faults  as Scene::DrawPackage
PageModel ModelOf(const render::SceneInputs& inputs, double wireRadius);

}  // namespace yax
