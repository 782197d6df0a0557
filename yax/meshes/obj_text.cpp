#include <charconv>
#include <cmath>
#include <cstddef>
#include <map>
#include <string>

#include "yax/meshes/mesh_files.h"

namespace yax {

namespace {

template <class Number>
void Append(std::string& text, Number number) {
  char digits[32];
  text += ' ';
  text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

/// Replaces an empty name, because some readers stop at an object without one.
std::string NameOf(const render::MeshGroup& group) { return group.Name.empty() ? "unnamed" : group.Name; }

}  // namespace

std::string MaterialName(const model::Colour& paint) {
  const auto part = [](float component) {
    return "_" + std::to_string(std::lround(255.0 * double(component)));
  };
  return "rgb" + part(paint.Red) + part(paint.Green) + part(paint.Blue);
}

std::string ObjText(const MeshScene& scene, const std::string& materialFile) {
  std::string text = "# " + scene.Name + ", in " + scene.UnitName + ", y up\nmtllib " + materialFile + "\n";
  std::size_t first = 1;  // the format counts points from 1 through the whole file
  for (const render::MeshGroup& group : scene.Groups) {
    text += "o " + NameOf(group) + "\n";
    for (const auto& [paint, mesh] : group.Meshes) {
      text += "usemtl " + MaterialName(paint) + "\n";
      for (const model::SceneVector& point : mesh.Points) {
        text += 'v';
        for (const float coordinate : {point.X, point.Y, point.Z})
          Append(text, static_cast<float>(double(coordinate) * scene.FileUnits));
        text += '\n';
      }
      for (const auto& triangle : mesh.Triangles) {
        text += 'f';
        for (const std::uint32_t corner : triangle) Append(text, first + corner);
        text += '\n';
      }
      first += mesh.Points.size();
    }
  }
  return text;
}

std::string MtlText(const MeshScene& scene) {
  std::map<std::string, model::Colour> materials;
  for (const render::MeshGroup& group : scene.Groups)
    for (const auto& [paint, mesh] : group.Meshes) materials.emplace(MaterialName(paint), paint);
  std::string text;
  for (const auto& [name, paint] : materials) {
    text += "newmtl " + name + "\nKd";
    for (const float component : {paint.Red, paint.Green, paint.Blue}) Append(text, component);
    // Plain colour without lighting.
    text += "\nillum 0\n";
  }
  return text;
}

}  // namespace yax
