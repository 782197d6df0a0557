/// The scene as meshes, sorted by net: what an export writes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "model/package.h"
#include "model/pen.h"
#include "render/mesh.h"

namespace render {

/// All shapes of one net, or of one part of the package's body, a mesh for each colour.
struct MeshGroup {
  std::string Name;  ///< the net's name; else "die", "stacked die", "die attach" or "rings"
  bool IsNet = false;
  std::vector<std::pair<model::Colour, Mesh>> Meshes;
};

class MeshPen final : public model::Pen {
 public:
  using NetOfName = std::function<std::string(const std::string&)>;

  /// Units  `wireRadius` in scene units
  MeshPen(const model::Package& package, double wireRadius, NetOfName netOf)
      : package_(package), wireRadius_(wireRadius), netOf_(std::move(netOf)) {}

  void Begin(model::Part part, const model::RecordPlace& record) override;
  void Quad(const model::Face& face) override;
  void Disc(const model::DiscRim& rim) override;
  void Strip(const model::WireStrip& points, const model::Colour& paint) override;

  /// The groups that are not empty, in the order in which Begin first named them.
  const std::vector<MeshGroup>& Groups() const { return groups_; }

 private:
  Mesh& MeshOf(const model::Colour& paint);

  const model::Package& package_;
  double wireRadius_;
  NetOfName netOf_;
  static constexpr std::size_t kNoGroup = SIZE_MAX;

  bool isNet_ = false;
  std::string name_;
  std::size_t group_ = kNoGroup;  ///< index for isNet_ and name_, once it was looked up
  model::Colour quadPaint_;       ///< colour of the last quad, which discs take on
  std::vector<MeshGroup> groups_;
  std::map<std::pair<bool, std::string>, std::size_t> places_;  ///< where each group is
};

}  // namespace render
