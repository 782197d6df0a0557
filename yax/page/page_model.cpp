#include "yax/page/page_model.h"

#include <tuple>
#include <utility>

#include "render/tube.h"

namespace yax {

namespace {

/// The key of a mesh: shapes of one kind with the same colours.
struct Kind {
  const char* Name;
  model::Colour OnBlack, OnWhite;
};

bool AreSame(const Kind& a, const Kind& b) {
  const auto values = [](const Kind& kind) {
    return std::tie(kind.OnBlack.Red, kind.OnBlack.Green, kind.OnBlack.Blue, kind.OnWhite.Red,
                    kind.OnWhite.Green, kind.OnWhite.Blue);
  };
  return a.Name == b.Name && values(a) == values(b);
}

constexpr const char* kKindNames[] = {"die",      "stacked die",    "die attach", "rings",
                                      "die pads", "substrate pads", "wires",      "stitches"};

/// Collects the colours of all shapes, in the order of drawing.
class PaintPen final : public model::Pen {
 public:
  void Quad(const model::Face& face) override { Paints.push_back(face.Paint); }
  void Disc(const model::DiscRim&) override {}
  void Strip(const model::WireStrip&, const model::Colour& paint) override { Paints.push_back(paint); }

  std::vector<model::Colour> Paints;
};

/// Sorts the shapes into meshes by their colours on black and on white, and remembers the triangles of wires.
class PagePen final : public model::Pen {
 public:
  PagePen(std::vector<model::Colour> onWhite, double wireRadius)
      : onWhite_(std::move(onWhite)), wireRadius_(wireRadius) {}

  void Begin(model::Part part, const model::RecordPlace& record) override {
    name_ = kKindNames[static_cast<std::size_t>(part)];
    record_ = record;
  }
  void Quad(const model::Face& face) override {
    current_ = MeshOf(face.Paint);
    render::AddFace(face, meshes_[current_].second);
  }
  void Disc(const model::DiscRim& rim) override { render::AddDisc(rim, meshes_[current_].second); }
  void Strip(const model::WireStrip& points, const model::Colour& paint) override {
    current_ = MeshOf(paint);
    render::Mesh& mesh = meshes_[current_].second;
    const std::size_t first = mesh.Triangles.size();
    render::AddTube(points, wireRadius_, mesh);
    wires_[record_] = {current_, first, mesh.Triangles.size() - first};
  }

  /// Moves the meshes out.
  PageModel Model();

 private:
  std::size_t MeshOf(const model::Colour& onBlack) {
    const Kind kind{name_, onBlack, onWhite_[shapes_++]};
    std::size_t mesh = 0;
    while (mesh < meshes_.size() && !AreSame(meshes_[mesh].first, kind)) ++mesh;
    if (mesh == meshes_.size()) meshes_.emplace_back(kind, render::Mesh{});
    return mesh;
  }

  std::vector<model::Colour> onWhite_;
  double wireRadius_;
  std::size_t shapes_ = 0;
  const char* name_ = "";
  model::RecordPlace record_;
  std::size_t current_ = 0;
  std::vector<std::pair<Kind, render::Mesh>> meshes_;
  std::map<model::RecordPlace, WireTriangles> wires_;
};

/// Meshes without triangles are left out, as glTF files do.
PageModel PagePen::Model() {
  PageModel model;
  std::vector<std::size_t> places;
  for (auto& [kind, mesh] : meshes_) {
    places.push_back(model.Groups.size());
    if (mesh.Triangles.empty()) continue;
    model.Light.push_back(kind.OnWhite);
    render::MeshGroup& group = model.Groups.emplace_back();
    group.Name = kind.Name;
    group.Meshes.emplace_back(kind.OnBlack, std::move(mesh));
  }
  for (auto& [record, wire] : wires_) wire.Mesh = places[wire.Mesh];
  model.Wires = std::move(wires_);
  return model;
}

}  // namespace

PageModel ModelOf(const render::SceneInputs& inputs, double wireRadius) {
  PaintPen paints;
  const render::Appearance white{.BlackBackground = false, .BackRed = 1, .BackGreen = 1, .BackBlue = 1};
  render::Scene({inputs.Package, inputs.Settings, white, inputs.Selection, inputs.Shapes}, paints)
      .DrawPackage();
  PagePen pen(std::move(paints.Paints), wireRadius);
  const render::Appearance black;
  render::Scene({inputs.Package, inputs.Settings, black, inputs.Selection, inputs.Shapes}, pen).DrawPackage();
  return pen.Model();
}

}  // namespace yax
