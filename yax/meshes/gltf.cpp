#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <nlohmann/json.hpp>
#include <utility>

#include "formats/json.h"
#include "model/version.h"
#include "yax/meshes/mesh_files.h"

namespace yax {

namespace {

using formats::Json;
using formats::JsonPiece;
using render::Mesh;
using render::MeshGroup;

// Points and triangles already have the format's layout in memory: three numbers of 4 bytes each.
constexpr std::size_t kPointBytes = 12, kTriangleBytes = 12;
static_assert(sizeof(model::SceneVector) == kPointBytes && sizeof(Mesh::Triangles[0]) == kTriangleBytes);

/// The screen's colours are sRGB, the format's are linear.
double Linear(float component) {
  const double c = double(component);
  return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

/// Unlit, so that a viewer shows the plain colour; viewers without that extension use a rough material. Flat
/// shapes are double-sided.
Json MaterialOf(const std::string& name, const model::Colour& paint) {
  const std::array<double, 4> factor{Linear(paint.Red), Linear(paint.Green), Linear(paint.Blue), 1.0};
  Json look = Json::object();
  // White is the default.
  if (factor != std::array{1.0, 1.0, 1.0, 1.0}) look["baseColorFactor"] = factor;
  look["metallicFactor"] = 0.0;
  return {{"doubleSided", true},
          {"extensions", {{"KHR_materials_unlit", Json::object()}}},
          {"name", name},
          {"pbrMetallicRoughness", look}};
}

/// The smallest box around points.
struct Bounds {
  model::SceneVector Low, High;

  explicit Bounds(const std::vector<model::SceneVector>& points) : Low(points.front()), High(Low) {
    for (const model::SceneVector& point : points) {
      Low = {std::min(Low.X, point.X), std::min(Low.Y, point.Y), std::min(Low.Z, point.Z)};
      High = {std::max(High.X, point.X), std::max(High.Y, point.Y), std::max(High.Z, point.Z)};
    }
  }
};

/// Writes the JSON piece by piece: a JSON tree for all nets of a large package would take more memory than
/// the rest of the program. The file's one buffer has all points before all triangles.
class Gltf {
 public:
  explicit Gltf(const MeshScene& scene) : scene_(scene) {
    ForEachMesh([this](const model::Colour& paint, const Mesh& mesh) {
      pointBytes_ += mesh.Points.size() * kPointBytes;
      triangleBytes_ += mesh.Triangles.size() * kTriangleBytes;
      materials_.try_emplace(MaterialName(paint), materials_.size());
    });
  }

  std::size_t BufferBytes() const { return pointBytes_ + triangleBytes_; }
  /// `uri` is the buffer's address; empty when the buffer follows in the same file.
  void AppendJson(const std::string& uri, std::string& text);
  void AppendBuffer(std::string& bytes) const;

 private:
  template <class Visit>
  void ForEachMesh(Visit&& visit) const;
  void AppendAccessors(std::string& text) const;
  void AppendMaterials(std::string& text) const;
  void AppendMeshes(std::string& text) const;
  void AppendNodes(std::string& text) const;

  const MeshScene& scene_;
  std::size_t pointBytes_ = 0, triangleBytes_ = 0;
  std::map<std::string, std::size_t> materials_;  ///< numbers by name, in the order of their first use
};

/// glTF does not allow a mesh without shapes.
bool HasMesh(const MeshGroup& group) {
  return std::any_of(group.Meshes.begin(), group.Meshes.end(),
                     [](const auto& part) { return !part.second.Triangles.empty(); });
}

/// Calls `visit` for every mesh that has shapes: first the body's, then the nets'.
template <class Visit>
void Gltf::ForEachMesh(Visit&& visit) const {
  for (const bool nets : {false, true})
    for (const MeshGroup& group : scene_.Groups)
      for (const auto& [paint, mesh] : group.Meshes)
        if (group.IsNet == nets && !mesh.Triangles.empty()) visit(paint, mesh);
}

/// Appends texts with commas between them.
class List {
 public:
  explicit List(std::string& text) : text_(text) {}
  std::string& Next() {
    if (!std::exchange(first_, false)) text_ += ',';
    return text_;
  }

 private:
  std::string& text_;
  bool first_ = true;
};

void AppendPoint(const char* name, const model::SceneVector& point, std::string& text) {
  text.append(",\"").append(name).append("\":[");
  List list(text);
  for (const float coordinate : {point.X, point.Y, point.Z}) list.Next() += JsonPiece(double(coordinate));
  text += ']';
}

/// Two accessors for each mesh: its points and its triangles.
void Gltf::AppendAccessors(std::string& text) const {
  std::size_t points = 0, triangles = 0;
  List list(text);
  const auto begin = [&](int view, std::size_t offset, int type, std::size_t count) {
    list.Next() += "{\"bufferView\":" + std::to_string(view);
    if (offset != 0) text += ",\"byteOffset\":" + std::to_string(offset);
    text += ",\"componentType\":" + std::to_string(type) + ",\"count\":" + std::to_string(count);
  };
  ForEachMesh([&](const model::Colour&, const Mesh& mesh) {
    constexpr int kSingle = 5126, kUnsigned = 5125;
    begin(0, points, kSingle, mesh.Points.size());
    const Bounds bounds(mesh.Points);
    AppendPoint("max", bounds.High, text);
    AppendPoint("min", bounds.Low, text);
    text += ",\"type\":\"VEC3\"}";
    begin(1, triangles, kUnsigned, mesh.Triangles.size() * 3);
    text += ",\"type\":\"SCALAR\"}";
    points += mesh.Points.size() * kPointBytes;
    triangles += mesh.Triangles.size() * kTriangleBytes;
  });
}

void Gltf::AppendMaterials(std::string& text) const {
  std::map<std::size_t, std::string> byNumber;
  ForEachMesh([&](const model::Colour& paint, const Mesh&) {
    const std::string name = MaterialName(paint);
    std::string& material = byNumber[materials_.at(name)];
    if (material.empty()) material = JsonPiece(MaterialOf(name, paint));
  });
  List list(text);
  for (const auto& [number, material] : byNumber) list.Next() += material;
}

void Gltf::AppendMeshes(std::string& text) const {
  std::size_t accessor = 0;
  List meshes(text);
  for (const bool nets : {false, true}) {
    for (const MeshGroup& group : scene_.Groups) {
      if (group.IsNet != nets || !HasMesh(group)) continue;
      meshes.Next() += "{";
      if (!group.Name.empty()) text += "\"name\":" + JsonPiece(group.Name) + ",";
      text += "\"primitives\":[";
      List primitives(text);
      for (const auto& [paint, mesh] : group.Meshes) {
        if (mesh.Triangles.empty()) continue;
        primitives.Next() += "{\"attributes\":{\"POSITION\":" + std::to_string(accessor) +
                             "},\"indices\":" + std::to_string(accessor + 1) +
                             ",\"material\":" + std::to_string(materials_.at(MaterialName(paint))) +
                             ",\"mode\":4}";
        accessor += 2;
      }
      text += "]}";
    }
  }
}

std::string ChildrenText(std::size_t first, std::size_t last) {
  std::string text = "\"children\":[";
  List list(text);
  for (std::size_t node = first; node < last; ++node) list.Next() += std::to_string(node);
  return text + "]";
}

/// The root, then the body's groups and their parent, then the nets' groups and their parent.
void Gltf::AppendNodes(std::string& text) const {
  std::string nodes;
  std::vector<std::size_t> parents;
  std::size_t count = 1, mesh = 0;
  for (const bool nets : {false, true}) {
    const std::size_t first = count;
    for (const MeshGroup& group : scene_.Groups) {
      if (group.IsNet != nets) continue;
      nodes += ",{";
      List fields(nodes);
      if (HasMesh(group)) fields.Next() += "\"mesh\":" + std::to_string(mesh++);
      if (!group.Name.empty()) fields.Next() += "\"name\":" + JsonPiece(group.Name);
      nodes += '}';
      ++count;
    }
    if (count == first) continue;
    nodes += ",{" + ChildrenText(first, count) + ",\"name\":\"" + (nets ? "nets" : "body") + "\"}";
    parents.push_back(count++);
  }
  Json root = Json::object();
  if (!parents.empty()) root["children"] = parents;
  if (!scene_.Name.empty()) root["name"] = scene_.Name;
  root["scale"] = {scene_.Metres, scene_.Metres, scene_.Metres};
  text.append(JsonPiece(root)).append(nodes);
}

void Gltf::AppendJson(const std::string& uri, std::string& text) {
  constexpr int kPoints = 34962, kTriangles = 34963;
  text += "{\"accessors\":[";
  AppendAccessors(text);
  text += "],\"asset\":" +
          JsonPiece({{"generator", std::string("yax ") + model::kVersionText}, {"version", "2.0"}});
  text += ",\"bufferViews\":" +
          JsonPiece({{{"buffer", 0}, {"byteLength", pointBytes_}, {"byteStride", 12}, {"target", kPoints}},
                     {{"buffer", 0},
                      {"byteLength", triangleBytes_},
                      {"byteOffset", pointBytes_},
                      {"target", kTriangles}}});
  text += ",\"buffers\":[{\"byteLength\":" + std::to_string(BufferBytes());
  if (!uri.empty()) text.append(",\"uri\":\"").append(uri).append("\"");
  text += "}],\"extensionsUsed\":[\"KHR_materials_unlit\"],\"materials\":[";
  AppendMaterials(text);
  text += "],\"meshes\":[";
  AppendMeshes(text);
  text += "],\"nodes\":[";
  AppendNodes(text);
  text += "],\"scene\":0,\"scenes\":[{\"nodes\":[0]}]}";
}

void Gltf::AppendBuffer(std::string& bytes) const {
  const auto append = [&bytes](const auto& table) {
    bytes.append(reinterpret_cast<const char*>(table.data()), table.size() * sizeof table[0]);
  };
  ForEachMesh([&](const model::Colour&, const Mesh& mesh) { append(mesh.Points); });
  ForEachMesh([&](const model::Colour&, const Mesh& mesh) { append(mesh.Triangles); });
}

std::string Base64(const std::string& bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t three = 0;
    for (std::size_t k = 0; k < 3; ++k)
      three = three << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    for (std::size_t k = 0; k < 4; ++k)
      text += i + k > bytes.size() ? '=' : kDigits[three >> (18 - 6 * k) & 63U];
  }
  return text;
}

/// The bytes of a 32-bit word, little-endian.
std::string WordOf(std::size_t value) {
  std::string word;
  for (int shift = 0; shift < 32; shift += 8) word += static_cast<char>(value >> shift & 0xFFU);
  return word;
}

}  // namespace

std::string GlbBytes(const MeshScene& scene) {
  constexpr std::size_t kHeader = 12, kChunkHeader = 8;
  Gltf gltf(scene);
  std::string file;
  // Reserved memory costs nothing until it is written; growing the text would copy the whole file.
  file.reserve(gltf.BufferBytes() + 4096 * (scene.Groups.size() + 4));
  file.append(kHeader + kChunkHeader, '\0');
  gltf.AppendJson({}, file);
  while (file.size() % 4 != 0) file += ' ';
  const std::size_t json = file.size() - kHeader - kChunkHeader;
  file.append(WordOf(gltf.BufferBytes())).append("BIN", 4);
  gltf.AppendBuffer(file);
  file.replace(0, kHeader + kChunkHeader,
               "glTF" + WordOf(2) + WordOf(file.size()) + WordOf(json) + std::string("JSON"));
  return file;
}

std::string GltfText(const MeshScene& scene) {
  Gltf gltf(scene);
  std::string buffer, text;
  gltf.AppendBuffer(buffer);
  gltf.AppendJson("data:application/octet-stream;base64," + Base64(buffer), text);
  return text;
}

}  // namespace yax
