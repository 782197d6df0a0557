#include "render/mesh.h"

namespace render {

namespace {

/// Adds points; returns the number of the first.
template <class Points>
std::uint32_t AddPoints(const Points& points, Mesh& mesh) {
  const auto first = static_cast<std::uint32_t>(mesh.Points.size());
  mesh.Points.insert(mesh.Points.end(), points.begin(), points.end());
  return first;
}

}  // namespace

void AddFace(const model::Face& face, Mesh& mesh) {
  const std::uint32_t first = AddPoints(face.Corners, mesh);
  // A face's corners run clockwise when seen from outside.
  mesh.Triangles.push_back({first, first + 2, first + 1});
  mesh.Triangles.push_back({first, first + 3, first + 2});
}

void AddDisc(const model::DiscRim& rim, Mesh& mesh) {
  const std::uint32_t first = AddPoints(rim, mesh);
  // The rim's last point repeats its first.
  for (std::uint32_t k = 1; k + 2 < rim.size(); ++k)
    mesh.Triangles.push_back({first, first + k, first + k + 1});
}

}  // namespace render
