/// Meshes as the bytes of files for other programs.
#pragma once

#include <string>
#include <vector>

#include "render/mesh_pen.h"

namespace yax {

/// A package as meshes.
struct MeshScene {
  std::string Name;
  const std::vector<render::MeshGroup>& Groups;
  double FileUnits = 1.0;  ///< a scene unit in file units
  double Metres = 1.0;     ///< a scene unit in metres
  const char* UnitName;    ///< name of the file unit
};

/// A binary glTF file in metres: one node for the body's parts, and one for the nets with a child for each.
std::string GlbBytes(const MeshScene& scene);

/// The same as text, with its buffer embedded.
std::string GltfText(const MeshScene& scene);

/// An .obj file in file units: an object for each part and net. `materialFile` is the name of the .mtl.
std::string ObjText(const MeshScene& scene, const std::string& materialFile);
/// The .mtl file that goes with it.
std::string MtlText(const MeshScene& scene);

/// The name of a colour's material in both formats: "rgb_255_255_0".
std::string MaterialName(const model::Colour& paint);

}  // namespace yax
