#include <gtest/gtest.h>
#include <tiny_gltf.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "analysis/nets.h"
#include "render/mesh_pen.h"
#include "render/scene.h"
#include "render/tube.h"
#include "sheet/drawing.h"
#include "tests/model/package_text.h"
#include "tests/pattern.h"
#include "tests/samples.h"
#include "yax/meshes/mesh_files.h"
#include "yax/options/loops.h"
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

/// A package as meshes, with wires of 2 units that run straight. Names that begin with V_ are a net.
struct Exported {
  explicit Exported(const model::Package& package) {
    LoopOptions loops;
    loops.Values.BaseLoopHeight = loops.Values.BaseExtension = 0.0F;
    const analysis::NetRule nets{Pattern("^(V)_")};
    Scene.FileUnits = double(package.UnitScale);
    Scene.Metres = Scene.FileUnits * 25.4e-6;
    const model::WireBondSettings settings = SettingsOf(loops, package);
    const render::Appearance appearance;
    const model::WireSelection selection;
    render::MeshPen pen(package, 1.0 / Scene.FileUnits,
                        [&](const std::string& name) { return analysis::NetOf(nets, name); });
    render::Scene({package, settings, appearance, selection}, pen).DrawPackage();
    Groups = pen.Groups();
  }

  std::vector<render::MeshGroup> Groups;
  MeshScene Scene{"board.yax", Groups, 1.0, 1.0, "mil"};
};

// 60 long, so everything is divided by 10 inside. Pads of no known shape are not drawn.
constexpr char kThreeWires[] =
    "TECHNOLOGY WIRE_BOND\nCOMPL 60\nCOMPW 40\nCOMPZ 5\n"
    "CBP V_1 1 1 0 1 1 0 R NONE\nWB V_1 10 0 0 50 0 10 10\n"
    "CBP V_2 1 1 0 1 1 0 R NONE\nWB V_2 10 9 0 50 9 10 10\n"
    "CBP X\xff 1 1 0 1 1 0 R NONE\nWB X\xff -10 0 0 -50 30 10 2\nCBP P 5 7 5 4 4 0 R ROUND\n";

constexpr float model::SceneVector::*kAxes[] = {&model::SceneVector::X, &model::SceneVector::Y,
                                                &model::SceneVector::Z};

/// The lowest and the highest value of a coordinate.
std::pair<double, double> Ends(const Mesh& mesh, float model::SceneVector::*axis) {
  const auto [low, high] =
      std::minmax_element(mesh.Points.begin(), mesh.Points.end(),
                          [&](const auto& a, const auto& b) { return a.*axis < b.*axis; });
  return {double((*low).*axis), double((*high).*axis)};
}

TEST(Export, IsAsLargeAsThePackage) {
  const Exported exported(model::PackageOf(kThreeWires));
  std::ostringstream text;
  for (const render::MeshGroup& group : exported.Groups) {
    Mesh all;
    for (const auto& [paint, mesh] : group.Meshes)
      all.Points.insert(all.Points.end(), mesh.Points.begin(), mesh.Points.end());
    text << group.Name;
    for (const auto axis : kAxes) {
      const auto [low, high] = Ends(all, axis);
      text << " " << std::round(low * 1e4) / 1e3 << " " << std::round(high * 1e4) / 1e3;
    }
    text << "\n";
  }
  // Up is y, and the package's y runs against z. A wire reaches 1 to either side: the slanting one 0.6 and
  // 0.8 in plan, where it runs 40 by 30, and sqrt(1 - (8 / 50.636)^2) up and down.
  EXPECT_EQ(text.str(),
            "die -20 20 0 5 -30 30\nP 3 7 5.01 5.01 -9 -5\nV 10 50 9 11 -10 1\n"
            "X\xff -50.6 -9.4 1.013 10.987 -30.8 0.8\n");
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

/// The accessor has the bytes of the table.
template <class Table>
bool Holds(const tinygltf::Model& model, const tinygltf::Accessor& accessor, const Table& table) {
  const tinygltf::BufferView& view = model.bufferViews.at(std::size_t(accessor.bufferView));
  const auto* const begin = reinterpret_cast<const unsigned char*>(table.data());
  const std::vector<unsigned char>& bytes = model.buffers.at(0).data;
  const std::size_t at = view.byteOffset + accessor.byteOffset, size = table.size() * sizeof table[0];
  return at + size <= bytes.size() && std::equal(begin, begin + size, bytes.begin() + std::ptrdiff_t(at));
}

void ExpectHolds(const tinygltf::Model& model, const tinygltf::Primitive& primitive,
                 const model::Colour& paint, const Mesh& mesh) {
  EXPECT_EQ(model.materials.at(std::size_t(primitive.material)).name, MaterialName(paint));
  const tinygltf::Accessor& points = model.accessors.at(std::size_t(primitive.attributes.at("POSITION")));
  const tinygltf::Accessor& corners = model.accessors.at(std::size_t(primitive.indices));
  EXPECT_EQ(points.count, mesh.Points.size());
  EXPECT_EQ(corners.count, 3 * mesh.Triangles.size());
  EXPECT_TRUE(Holds(model, points, mesh.Points) && Holds(model, corners, mesh.Triangles));
  for (std::size_t k = 0; k < 3; ++k)
    EXPECT_EQ(std::pair(points.minValues.at(k), points.maxValues.at(k)), Ends(mesh, kAxes[k]));
}

/// Each group is a node below "body" or "nets", with its meshes.
tinygltf::Model ExpectReadsBack(const Exported& exported) {
  const tinygltf::Model model = Parsed(GlbBytes(exported.Scene));
  const auto node = [&](int number) -> const tinygltf::Node& { return model.nodes.at(std::size_t(number)); };
  const tinygltf::Node& root = node(model.scenes.at(0).nodes.at(0));
  EXPECT_EQ(root.name, "board.yax");
  EXPECT_EQ(root.scale, std::vector<double>(3, exported.Scene.Metres));
  std::size_t count = 0;
  for (const int parent : root.children) {
    auto child = node(parent).children.begin();
    for (const render::MeshGroup& group : exported.Groups) {
      if (group.IsNet != (node(parent).name == "nets")) continue;
      EXPECT_EQ(node(*child).name, sheet::CleanText(group.Name));
      const auto& primitives = model.meshes.at(std::size_t(node(*child++).mesh)).primitives;
      for (std::size_t k = 0; k < group.Meshes.size(); ++k)
        ExpectHolds(model, primitives.at(k), group.Meshes[k].first, group.Meshes[k].second);
      ++count;
    }
  }
  EXPECT_EQ(count, exported.Groups.size());
  return model;
}

TEST(Export, ReadsBackWithItsColours) {
  const tinygltf::Model model = ExpectReadsBack(Exported(model::PackageOf(kThreeWires)));
  // The file's colours are linear: a half becomes ((0.5 + 0.055) / 1.055) ^ 2.4.
  std::map<std::string, double> green;
  for (const tinygltf::Material& material : model.materials) {
    EXPECT_EQ(material.extensions.count("KHR_materials_unlit"), 1U);
    green[material.name] = material.pbrMetallicRoughness.baseColorFactor.at(1);
  }
  EXPECT_EQ(green["rgb_255_255_0"], 1.0);
  EXPECT_NEAR(green["rgb_0_128_128"], 0.21404, 1e-5);
  ExpectReadsBack(Exported(model::PackageOf("COMPL 60\nCOMPW 40\nCOMPZ 5\n")));
}

TEST(Export, WritesTheSameAsText) {
  const Exported exported(model::PackageOf(kThreeWires));
  std::istringstream obj(ObjText(exported.Scene, "board.mtl"));
  const std::string mtl = MtlText(exported.Scene);
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
  EXPECT_EQ(objects, (std::vector<std::string>{"die", "P", "V", "X\xff"}));
  // Four points a face; two octagons a wire, with 8 sides of two triangles and two ends of six between; a
  // round pad, a face below a rim of 37 points whose last one repeats the first.
  EXPECT_EQ(counts["v"], 7U * 4 + 3 * 16 + 37);
  EXPECT_EQ(lastCorner, counts["v"]);
  EXPECT_EQ(counts["f"], 7U * 2 + 3 * 28 + 34);
  EXPECT_EQ(farthest, 50.0) << "in file units";
  EXPECT_EQ(lowest, 0.0);
  for (const std::string& material : materials)
    EXPECT_NE(mtl.find("newmtl " + material + "\nKd "), std::string::npos) << material;
  EXPECT_EQ(materials.count("rgb_255_255_0"), 1U);
  EXPECT_NE(mtl.find("rgb_255_255_0\nKd 1 1 0\n"), std::string::npos) << mtl;
}

TEST(Export, OfTheSamplesReadsBackWithTheirNets) {
  for (const char* sample : {"AAAc", "stacked-ram"}) {
    const model::Package package = LoadPackage(SamplePath(sample));
    const Exported exported(package);
    ExpectReadsBack(exported);
    std::set<std::string> names, groups;
    for (const auto* bonds : {&package.Bonds, &package.SDBonds})
      for (const model::BondRec& bond : *bonds) names.insert(bond.Name);
    for (const model::StitchRec& stitch : package.Stitches) names.insert(stitch.Name);
    for (const render::MeshGroup& group : exported.Groups)
      if (group.IsNet && !groups.insert(group.Name).second) ADD_FAILURE() << group.Name << " comes twice";
    EXPECT_EQ(groups, names) << sample;
  }
}

}  // namespace
}  // namespace yax
