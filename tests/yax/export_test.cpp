#include <gtest/gtest.h>
#include <tiny_gltf.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "render/mesh_pen.h"
#include "render/scene.h"
#include "render/tube.h"
#include "tests/model/package_text.h"
#include "tests/samples.h"
#include "yax/meshes/mesh_files.h"
#include "yax/options/loops.h"
#include "yax/options/nets_options.h"
#include "yax/options/opened_package.h"

namespace yax {
namespace {

using render::Mesh;

/// Every edge of the triangles runs once each way, so the surface has no hole and no side turned over.
bool IsClosed(const Mesh& mesh) {
  std::map<std::pair<std::uint32_t, std::uint32_t>, int> edges;
  for (const auto& [a, b, c] : mesh.Triangles) {
    for (const auto& [from, to] : {std::pair{a, b}, {b, c}, {c, a}}) {
      ++edges[{from, to}];
      if (from == to || from >= mesh.Points.size() || to >= mesh.Points.size()) return false;
    }
  }
  return std::all_of(edges.begin(), edges.end(), [&](const auto& edge) {
    return edge.second == 1 && edges.count({edge.first.second, edge.first.first}) == 1;
  });
}

/// Above 0 when the triangles look outwards.
double Volume(const Mesh& mesh) {
  double sum = 0.0;
  for (const auto& [i, j, k] : mesh.Triangles) {
    const auto &a = mesh.Points[i], &b = mesh.Points[j], &c = mesh.Points[k];
    sum += double(a.X) * (double(b.Y) * double(c.Z) - double(b.Z) * double(c.Y)) +
           double(a.Y) * (double(b.Z) * double(c.X) - double(b.X) * double(c.Z)) +
           double(a.Z) * (double(b.X) * double(c.Y) - double(b.Y) * double(c.X));
  }
  return sum / 6.0;
}

TEST(Tube, IsClosedAndLooksOutwards) {
  // A regular octagon of radius r has the area 2 * sqrt(2) * r^2.
  const double area = 2.0 * std::sqrt(2.0) * 0.01;
  const struct {
    model::WireStrip strip;
    std::optional<double> volume;
  } cases[] = {
      // Straight, in six pieces and in one; straight up.
      {{{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}, {6, 0, 0}}}, 6.0 * area},
      {{{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {-3, 4, 12}}}, 13.0 * area},
      {{{{2, 0, 1}, {2, 1, 1}, {2, 2, 1}, {2, 2, 1}, {2, 3, 1}, {2, 4, 1}, {2, 5, 1}}}, 5.0 * area},
      // Two right angles with mitres between: the line keeps the volume.
      {{{{0, 0, 0}, {0, 2, 0}, {0, 2, 0}, {0, 2, 0}, {4, 2, 0}, {4, 2, 0}, {4, 2, 3}}}, 9.0 * area},
      // A loop; one that turns back on itself.
      {{{{0, 0, 0}, {0, .4F, 0}, {.1F, .6F, .1F}, {.3F, .8F, .2F}, {.6F, 1, .5F}, {2, 1, 2}, {5, 0, 5}}}, {}},
      {{{{0, 0, 0}, {5, 0, 0}, {0, 0.01F, 0}, {0, 3, 0}, {0, 0, 0}, {1, 1, 1}, {1, 1, 2}}}, {}},
  };
  for (const auto& [strip, volume] : cases) {
    Mesh mesh;
    render::AddTube(strip, 0.1, mesh);
    EXPECT_TRUE(IsClosed(mesh));
    if (volume) {
      EXPECT_NEAR(Volume(mesh), *volume, 1e-5);
    } else {
      EXPECT_GT(Volume(mesh), 0.0);
    }
  }
  Mesh none;
  render::AddTube({}, 0.1, none);
  EXPECT_TRUE(none.Points.empty());
}

/// A package as meshes, with wires of 2 units that run straight.
struct Exported {
  explicit Exported(const std::string& text, const std::string& netPattern = {})
      : Exported(model::PackageOf(text), netPattern) {}

  explicit Exported(model::Package package, const std::string& netPattern = {}) {
    LoopOptions loops;
    loops.Values.BaseLoopHeight = loops.Values.BaseExtension = 0.0F;
    analysis::NetRule nets;
    if (!netPattern.empty()) nets.Pattern = std::regex(netPattern);
    scale = double(package.UnitScale);
    const model::WireBondSettings settings = SettingsOf(loops, package);
    const render::Appearance appearance;
    const model::WireSelection selection;
    render::MeshPen pen(package, 1.0 / scale,
                        [&](const std::string& name) { return analysis::NetOf(nets, name); });
    render::Scene({package, settings, appearance, selection}, pen).DrawPackage();
    groups = pen.Groups();
  }

  MeshScene Scene() const { return {"board.yax", groups, scale, scale * 25.4e-6, "mil"}; }

  const Mesh& Only(const std::string& name) const {
    const auto group = std::find_if(groups.begin(), groups.end(),
                                    [&](const render::MeshGroup& one) { return one.Name == name; });
    return group == groups.end() || group->Meshes.size() != 1 ? none : group->Meshes.front().second;
  }

  double scale;
  std::vector<render::MeshGroup> groups;
  const Mesh none = {};
};

// 60 long, so everything is divided by 10 inside. Pads of no known shape are not drawn.
constexpr char kThreeWires[] =
    "TECHNOLOGY WIRE_BOND\nCOMPL 60\nCOMPW 40\nCOMPZ 5\n"
    "CBP V_1 1 1 0 1 1 0 R NONE\nWB V_1 10 0 0 50 0 10 10\n"
    "CBP V_2 1 1 0 1 1 0 R NONE\nWB V_2 10 9 0 50 9 10 10\n"
    "CBP X\xff 1 1 0 1 1 0 R NONE\nWB X\xff -10 0 0 -50 30 10 2\n";

TEST(Export, HasAClosedTubeForEachWire) {
  const Exported exported(kThreeWires, "^(V)_");
  const Mesh& tubes = exported.Only("V");
  EXPECT_TRUE(IsClosed(tubes));
  // Both 4 long in the scene, 0.1 thick on either side: 2 * 4 * 2 * sqrt(2) * 0.01.
  EXPECT_NEAR(Volume(tubes), 0.2262742, 1e-5);
  EXPECT_TRUE(IsClosed(exported.Only("X\xff")));
  // 40 by 30 in plan and 8 down: sqrt(1600 + 900 + 64) = 50.636.
  EXPECT_NEAR(Volume(exported.Only("X\xff")), 5.0635956 * 0.0282843, 1e-5);
}

/// Reads a .glb file back.
tinygltf::Model Parsed(const std::string& bytes) {
  tinygltf::Model model;
  std::string error, warning;
  EXPECT_TRUE(tinygltf::TinyGLTF().LoadBinaryFromMemory(&model, &error, &warning,
                                                        reinterpret_cast<const unsigned char*>(bytes.data()),
                                                        static_cast<unsigned>(bytes.size())))
      << error;
  EXPECT_EQ(error + warning, "");
  return model;
}

std::vector<std::string> ChildNames(const tinygltf::Model& model, const std::string& parent) {
  std::vector<std::string> names;
  for (const tinygltf::Node& node : model.nodes)
    if (node.name == parent)
      for (const int child : node.children) names.push_back(model.nodes.at(std::size_t(child)).name);
  return names;
}

template <class Value>
std::vector<Value> ValuesOf(const tinygltf::Model& model, const tinygltf::Accessor& accessor) {
  const tinygltf::BufferView& view = model.bufferViews.at(std::size_t(accessor.bufferView));
  std::vector<Value> values(accessor.count);
  std::memcpy(values.data(), model.buffers.at(0).data.data() + view.byteOffset + accessor.byteOffset,
              values.size() * sizeof(Value));
  return values;
}

struct Box {
  double low[3] = {HUGE_VAL, HUGE_VAL, HUGE_VAL}, high[3] = {-HUGE_VAL, -HUGE_VAL, -HUGE_VAL};
};

/// The points of a node's mesh and of its children's, read through the file's accessors and checked against
/// their bounds.
void Enclose(const tinygltf::Model& model, const tinygltf::Node& node, Box& box) {
  for (const int child : node.children) Enclose(model, model.nodes.at(std::size_t(child)), box);
  if (node.mesh < 0) return;
  for (const tinygltf::Primitive& primitive : model.meshes.at(std::size_t(node.mesh)).primitives) {
    const tinygltf::Accessor& points = model.accessors.at(std::size_t(primitive.attributes.at("POSITION")));
    Box own;
    for (const auto& at : ValuesOf<std::array<float, 3>>(model, points)) {
      for (std::size_t k = 0; k < 3; ++k) {
        own.low[k] = std::min(own.low[k], double(at[k]));
        own.high[k] = std::max(own.high[k], double(at[k]));
      }
    }
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_EQ(points.minValues.at(k), own.low[k]);
      EXPECT_EQ(points.maxValues.at(k), own.high[k]);
      box.low[k] = std::min(box.low[k], own.low[k]);
      box.high[k] = std::max(box.high[k], own.high[k]);
    }
  }
}

/// "low high" of x, y and z in mils.
std::string BoundsOf(const tinygltf::Model& model, const std::string& name) {
  Box box;
  for (const tinygltf::Node& node : model.nodes)
    if (node.name == name) Enclose(model, node, box);
  const double mils = model.nodes.at(std::size_t(model.scenes.at(0).nodes.at(0))).scale.at(0) / 25.4e-6;
  std::ostringstream text;
  for (std::size_t k = 0; k < 3; ++k)
    text << std::round(box.low[k] * mils * 1e3) / 1e3 << " " << std::round(box.high[k] * mils * 1e3) / 1e3
         << " ";
  return text.str();
}

TEST(Export, NamesANodeForEachNetAndIsAsLargeAsThePackage) {
  const tinygltf::Model model = Parsed(GlbBytes(Exported(kThreeWires, "^(V)_").Scene()));
  EXPECT_EQ(ChildNames(model, "board.yax"), (std::vector<std::string>{"body", "nets"}));
  EXPECT_EQ(ChildNames(model, "body"), std::vector<std::string>{"die"});
  EXPECT_EQ(ChildNames(model, "nets"), (std::vector<std::string>{"V", "X\xEF\xBF\xBD"}));
  // Up is y, and the package's y runs against z.
  EXPECT_EQ(BoundsOf(model, "die"), "-20 20 0 5 -30 30 ");
  EXPECT_EQ(BoundsOf(model, "V"), "10 50 9 11 -10 1 ");
  const tinygltf::Model bare = Parsed(GlbBytes(Exported("COMPL 60\nCOMPW 40\nCOMPZ 5\n").Scene()));
  EXPECT_EQ(ChildNames(bare, "board.yax"), std::vector<std::string>{"body"});
}

TEST(Export, KeepsItsTrianglesAndColoursInTheFile) {
  const Exported exported(kThreeWires);
  const tinygltf::Model model = Parsed(GlbBytes(exported.Scene()));
  std::size_t triangles = 0;
  for (const tinygltf::Mesh& mesh : model.meshes) {
    for (const tinygltf::Primitive& primitive : mesh.primitives) {
      const tinygltf::Accessor& corners = model.accessors.at(std::size_t(primitive.indices));
      const auto points = model.accessors.at(std::size_t(primitive.attributes.at("POSITION"))).count;
      triangles += corners.count / 3;
      for (const std::uint32_t corner : ValuesOf<std::uint32_t>(model, corners)) ASSERT_LT(corner, points);
    }
  }
  // The die's six faces; a tube of one piece: 8 sides of two triangles, and two octagons of six.
  EXPECT_EQ(triangles, 6U * 2 + 3 * (8 * 2 + 2 * 6));
  const auto yellow = std::find_if(model.materials.begin(), model.materials.end(),
                                   [](const auto& material) { return material.name == "rgb_255_255_0"; });
  ASSERT_NE(yellow, model.materials.end());
  EXPECT_EQ(yellow->pbrMetallicRoughness.baseColorFactor, (std::vector<double>{1, 1, 0, 1}));
  EXPECT_EQ(yellow->extensions.count("KHR_materials_unlit"), 1U);
}

TEST(Export, WritesTheSameAsText) {
  const Exported exported(kThreeWires, "^(V)_");
  std::istringstream obj(ObjText(exported.Scene(), "board.mtl"));
  const std::string mtl = MtlText(exported.Scene());
  std::map<std::string, std::size_t> counts;
  std::vector<std::string> objects;
  std::set<std::string> materials;
  double lowest = 0.0, farthest = 0.0;
  std::size_t lastCorner = 0;
  for (std::string line, word; std::getline(obj, line);) {
    std::istringstream values(line);
    values >> word;
    ++counts[word];
    if (word == "o") objects.push_back(line.substr(2));
    if (word == "usemtl") materials.insert(line.substr(7));
    if (double x, y; word == "v" && values >> x >> y) {
      lowest = std::min(lowest, y);
      farthest = std::max(farthest, x);
    }
    for (std::size_t corner = 0; word == "f" && values >> corner;) lastCorner = std::max(lastCorner, corner);
  }
  EXPECT_EQ(objects, (std::vector<std::string>{"die", "V", "X\xff"}));
  // Four points a face; two octagons a wire. Triangles as in the other format.
  EXPECT_EQ(counts["v"], 6U * 4 + 3 * 16);
  EXPECT_EQ(lastCorner, counts["v"]);
  EXPECT_EQ(counts["f"], 6U * 2 + 3 * 28);
  EXPECT_EQ(farthest, 50.0) << "in file units";
  EXPECT_EQ(lowest, 0.0);
  for (const std::string& material : materials)
    EXPECT_NE(mtl.find("newmtl " + material + "\nKd "), std::string::npos) << material;
  EXPECT_EQ(materials.count("rgb_255_255_0"), 1U);
  EXPECT_NE(mtl.find("rgb_255_255_0\nKd 1 1 0\n"), std::string::npos) << mtl;
}

TEST(Export, OfTheSamplesReadsBackWithTheirNets) {
  for (const char* sample : kSamples) {
    model::Package package = LoadPackage(SamplePath(sample));
    std::set<std::string> names;
    for (const auto* bonds : {&package.Bonds, &package.SDBonds})
      for (const model::BondRec& bond : *bonds) names.insert(bond.Name);
    for (const model::StitchRec& stitch : package.Stitches) names.insert(stitch.Name);
    const std::vector<std::string> nodes =
        ChildNames(Parsed(GlbBytes(Exported(std::move(package)).Scene())), "nets");
    EXPECT_EQ(std::set<std::string>(nodes.begin(), nodes.end()), names) << sample;
    EXPECT_EQ(nodes.size(), names.size()) << sample;
  }
}

}  // namespace
}  // namespace yax
