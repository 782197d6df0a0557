#include <tiny_gltf.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <sstream>
#include <utility>

#include "formats/json.h"
#include "model/version.h"
#include "yax/meshes/mesh_files.h"

namespace yax {

namespace {

constexpr char kUnlit[] = "KHR_materials_unlit";

/// The screen's colours are sRGB, the format's are linear.
double Linear(float component) {
  const double c = double(component);
  return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

enum class Form { Binary, Text };

/// Builds the file's tree; all points stand in its one buffer before all triangles.
class GlbBuilder {
 public:
  explicit GlbBuilder(const MeshScene& scene) : scene_(scene) {}

  std::string Bytes(Form form) {
    AddBuffer();
    const int root = AddNode(scene_.Name, kNoMesh);
    NodeAt(root).scale.assign(3, scene_.Metres);
    AddGroups(root, "body", false);
    AddGroups(root, "nets", true);
    model_.scenes.emplace_back().nodes.push_back(root);
    model_.defaultScene = 0;
    model_.asset.version = "2.0";
    model_.asset.generator = std::string("yax ") + model::kVersionText;
    model_.extensionsUsed.emplace_back(kUnlit);
    std::ostringstream file;
    tinygltf::TinyGLTF().WriteGltfSceneToStream(&model_, file, false, form == Form::Binary);
    return file.str();
  }

 private:
  static constexpr int kNoMesh = -1;

  tinygltf::Node& NodeAt(int node) { return model_.nodes[static_cast<std::size_t>(node)]; }

  void AddBuffer();
  void AddGroups(int root, const char* name, bool nets);
  int AddNode(const std::string& name, int mesh);
  int AddMesh(const render::MeshGroup& group);
  int AddPoints(const render::Mesh& mesh);
  int AddTriangles(const render::Mesh& mesh);
  int MaterialOf(const model::Colour& paint);

  const MeshScene& scene_;
  tinygltf::Model model_;
  std::size_t pointsUsed_ = 0;
  std::size_t trianglesUsed_ = 0;
  std::map<std::string, int> materials_;
};

void GlbBuilder::AddBuffer() {
  std::size_t points = 0;
  std::size_t triangles = 0;
  for (const render::MeshGroup& group : scene_.groups) {
    for (const auto& [paint, mesh] : group.Meshes) {
      points += mesh.Points.size() * sizeof mesh.Points[0];
      triangles += mesh.Triangles.size() * sizeof mesh.Triangles[0];
    }
  }
  model_.buffers.emplace_back().data.resize(points + triangles);
  tinygltf::BufferView& pointView = model_.bufferViews.emplace_back();
  pointView.buffer = 0;
  pointView.byteLength = points;
  pointView.byteStride = sizeof(model::SceneVector);
  pointView.target = TINYGLTF_TARGET_ARRAY_BUFFER;
  tinygltf::BufferView& triangleView = model_.bufferViews.emplace_back();
  triangleView.buffer = 0;
  triangleView.byteOffset = points;
  triangleView.byteLength = triangles;
  triangleView.target = TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER;
}

/// A node that holds a node for each group of one kind; nothing where there is none.
void GlbBuilder::AddGroups(int root, const char* name, bool nets) {
  std::vector<int> children;
  for (const render::MeshGroup& group : scene_.groups)
    if (group.IsNet == nets) children.push_back(AddNode(group.Name, AddMesh(group)));
  if (children.empty()) return;
  const int node = AddNode(name, kNoMesh);
  NodeAt(node).children = std::move(children);
  NodeAt(root).children.push_back(node);
}

int GlbBuilder::AddNode(const std::string& name, int mesh) {
  tinygltf::Node& node = model_.nodes.emplace_back();
  node.name = formats::Utf8Of(name);
  node.mesh = mesh;
  return static_cast<int>(model_.nodes.size()) - 1;
}

int GlbBuilder::AddMesh(const render::MeshGroup& group) {
  tinygltf::Mesh built;
  built.name = formats::Utf8Of(group.Name);
  for (const auto& [paint, mesh] : group.Meshes) {
    if (mesh.Triangles.empty()) continue;
    tinygltf::Primitive& primitive = built.primitives.emplace_back();
    primitive.mode = TINYGLTF_MODE_TRIANGLES;
    primitive.material = MaterialOf(paint);
    primitive.attributes["POSITION"] = AddPoints(mesh);
    primitive.indices = AddTriangles(mesh);
  }
  // The format knows no mesh without shapes.
  if (built.primitives.empty()) return kNoMesh;
  model_.meshes.push_back(std::move(built));
  return static_cast<int>(model_.meshes.size()) - 1;
}

int GlbBuilder::AddPoints(const render::Mesh& mesh) {
  tinygltf::Accessor& accessor = model_.accessors.emplace_back();
  accessor.bufferView = 0;
  accessor.byteOffset = pointsUsed_;
  accessor.componentType = TINYGLTF_COMPONENT_TYPE_FLOAT;
  accessor.type = TINYGLTF_TYPE_VEC3;
  accessor.count = mesh.Points.size();
  model::SceneVector low = mesh.Points.front();
  model::SceneVector high = low;
  for (const model::SceneVector& point : mesh.Points) {
    low = {std::min(low.X, point.X), std::min(low.Y, point.Y), std::min(low.Z, point.Z)};
    high = {std::max(high.X, point.X), std::max(high.Y, point.Y), std::max(high.Z, point.Z)};
  }
  accessor.minValues = {double(low.X), double(low.Y), double(low.Z)};
  accessor.maxValues = {double(high.X), double(high.Y), double(high.Z)};
  const std::size_t bytes = mesh.Points.size() * sizeof mesh.Points[0];
  std::memcpy(model_.buffers[0].data.data() + pointsUsed_, mesh.Points.data(), bytes);
  pointsUsed_ += bytes;
  return static_cast<int>(model_.accessors.size()) - 1;
}

int GlbBuilder::AddTriangles(const render::Mesh& mesh) {
  tinygltf::Accessor& accessor = model_.accessors.emplace_back();
  accessor.bufferView = 1;
  accessor.byteOffset = trianglesUsed_;
  accessor.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT;
  accessor.type = TINYGLTF_TYPE_SCALAR;
  accessor.count = mesh.Triangles.size() * 3;
  const std::size_t bytes = mesh.Triangles.size() * sizeof mesh.Triangles[0];
  std::memcpy(model_.buffers[0].data.data() + model_.bufferViews[1].byteOffset + trianglesUsed_,
              mesh.Triangles.data(), bytes);
  trianglesUsed_ += bytes;
  return static_cast<int>(model_.accessors.size()) - 1;
}

/// Unlit, so that a viewer shows the colour itself; viewers that do not know how get a dull material.
int GlbBuilder::MaterialOf(const model::Colour& paint) {
  const auto [place, isNew] =
      materials_.try_emplace(MaterialName(paint), static_cast<int>(model_.materials.size()));
  if (!isNew) return place->second;
  tinygltf::Material& material = model_.materials.emplace_back();
  material.name = place->first;
  material.pbrMetallicRoughness.baseColorFactor = {Linear(paint.Red), Linear(paint.Green), Linear(paint.Blue),
                                                   1.0};
  material.pbrMetallicRoughness.metallicFactor = 0.0;
  material.pbrMetallicRoughness.roughnessFactor = 1.0;
  // Flat shapes are seen from both sides.
  material.doubleSided = true;
  material.extensions[kUnlit] = tinygltf::Value(tinygltf::Value::Object());
  return place->second;
}

}  // namespace

std::string GlbBytes(const MeshScene& scene) { return GlbBuilder(scene).Bytes(Form::Binary); }

std::string GltfText(const MeshScene& scene) { return GlbBuilder(scene).Bytes(Form::Text); }

}  // namespace yax
