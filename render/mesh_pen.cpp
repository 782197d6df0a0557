#include "render/mesh_pen.h"

#include <algorithm>

#include "render/tube.h"

namespace render {

namespace {

const char* BodyName(model::Part part) {
  switch (part) {
    case model::Part::Die:
      return "die";
    case model::Part::StackedDie:
      return "stacked die";
    case model::Part::DieAttach:
      return "die attach";
    case model::Part::Rings:
      return "rings";
    default:
      return nullptr;
  }
}

bool AreSame(const model::Colour& a, const model::Colour& b) {
  return a.Red == b.Red && a.Green == b.Green && a.Blue == b.Blue;
}

}  // namespace

void MeshPen::Begin(model::Part part, const model::RecordPlace& record) {
  const char* body = BodyName(part);
  isNet_ = body == nullptr;
  name_ = isNet_ ? netOf_(model::NameOf(package_, record)) : body;
  group_ = kNoGroup;
}

Mesh& MeshPen::MeshOf(const model::Colour& paint) {
  if (group_ == kNoGroup) {
    const auto [place, isNew] = places_.try_emplace({isNet_, name_}, groups_.size());
    if (isNew) groups_.push_back({.Name = name_, .IsNet = isNet_, .Meshes = {}});
    group_ = place->second;
  }
  auto& meshes = groups_[group_].Meshes;
  const auto found = std::find_if(meshes.begin(), meshes.end(),
                                  [&paint](const auto& entry) { return AreSame(entry.first, paint); });
  return found != meshes.end() ? found->second : meshes.emplace_back(paint, Mesh{}).second;
}

void MeshPen::Quad(const model::Face& face) {
  quadPaint_ = face.Paint;
  AddFace(face, MeshOf(face.Paint));
}

void MeshPen::Disc(const model::DiscRim& rim) { AddDisc(rim, MeshOf(quadPaint_)); }

void MeshPen::Strip(const model::WireStrip& points, const model::Colour& paint) {
  AddTube(points, wireRadius_, MeshOf(paint));
}

}  // namespace render
