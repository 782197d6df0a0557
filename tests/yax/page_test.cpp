#include "yax/page/package_page.h"

#include <gtest/gtest.h>

#include "tests/temporary_folder.h"
#include "yax/page/page_model.h"

namespace yax {
namespace {

/// Two wires of 30 units side by side at 4, and a third far from them; the second begins another script.
constexpr char kThree[] =
    "TECHNOLOGY WIRE_BOND\nCOMPL 40\nCOMPW 40\nCOMPZ 5\n"
    "CBP A 15 0 0 3 3 0 R RECTANGLE\nSBP A 45 0 0 3 3 0 RECTANGLE 0 1\nWB A 15 0 0 45 0 5 0\n"
    "CBP </script> 15 4 1 3 3 0 R RECTANGLE\nSBP </script> 45 4 0 3 3 0 RECTANGLE 0 1\nWB </script> 15 4 0 "
    "45 4 5 0\n"
    "CBP C -15 0 0 3 3 0 L RECTANGLE\nSBP C -45 0 0 3 3 0 RECTANGLE 0 1\nWB C -15 0 0 -45 0 5 0\n";

class PageTest : public testing::Test {
 protected:
  PageTest() { PutFile(folder / "a<b>.yax", kThree); }

  OpenedPackage Opened(const WireOptions& wires = {}) const {
    return OpenedPackage({.File = folder / "a<b>.yax", .Wires = wires});
  }
  std::string Page(const WireOptions& wires = {}) const { return PageOf(Opened(wires), {}); }

  TemporaryFolder folder;
};

std::size_t Count(const std::string& page, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = page.find(text); at != std::string::npos; at = page.find(text, at + 1)) ++count;
  return count;
}

TEST_F(PageTest, NamesAreTextAndThePageIsSelfContained) {
  const std::string page = Page();
  EXPECT_EQ(Count(page, "</script>"), 3U);
  EXPECT_NE(page.find("<title>a&lt;b>.yax</title>"), std::string::npos);
  EXPECT_EQ(page.find("@"), page.find("@media")) << "no part is missing";
  for (const char* outside : {" src=", "@import", "url("})
    EXPECT_EQ(page.find(outside), std::string::npos) << outside;
  EXPECT_EQ(Count(page, R"("asset":{"generator":"yax )"), 1U);
}

TEST_F(PageTest, AWireHasItsMeasuresAndTheNearestOfAllWires) {
  WireOptions second;
  second.Names = {"</script>"};
  const std::string page = Page(second);
  const std::size_t begin = page.find("\"wires\":");
  const std::string wires = page.substr(begin, page.find("]]", begin) - begin);
  // Name, other pad, tier, net type, length; angle, clearance (4 mils less the diameter of 1), nearest.
  EXPECT_EQ(wires.find(R"("wires":[["\u003c/script>","","1","",)"), 0U) << wires;
  EXPECT_EQ(Count(wires, R"(,0.0,"3.0000","A",)"), 1U) << wires;
  EXPECT_EQ(Count(wires, "],["), 0U) << "no other wire";
}

TEST_F(PageTest, TheDiagramStandsOnASheetThatIsLargeEnough) {
  // The die's side in millimetres, and diagrams; no sheet is longer than 5080.
  const std::pair<std::string, std::size_t> rows[] = {{"4", 1}, {"700", 1}, {"90000", 0}};
  for (const auto& [size, diagrams] : rows) {
    const std::string file = PutFile(
        folder / "large.yax", "TECHNOLOGY WIRE_BOND\nCOMPL " + size + "\nCOMPW " + size + "\nCOMPZ 1\n");
    testing::internal::CaptureStderr();
    const std::string page = PageOf(OpenedPackage({.File = file, .Unit = analysis::UnitNamed("mm")}), {});
    const std::string note = testing::internal::GetCapturedStderr();
    EXPECT_EQ(Count(page, "id=\"diagram-tab\""), diagrams) << size;
    EXPECT_EQ(Count(page, "<svg"), diagrams) << size;
    EXPECT_EQ(Count(note, "large.yax: note: the page has no diagram, "), 1 - diagrams) << note;
  }
}

TEST_F(PageTest, EachWiresTrianglesLieAroundItsLine) {
  const OpenedPackage opened = Opened();
  const double scale = double(opened.Package.UnitScale);
  const PageModel model = ModelOf(opened.Inputs({}), 0.5 / scale);
  ASSERT_EQ(model.Wires.size(), 3U);
  const double middles[][2] = {{30, 0}, {30, 4}, {-30, 0}};  // of the wires in plan
  for (std::size_t k = 0; k < model.Wires.size(); ++k) {
    const WireTriangles& wire = model.Wires.at({model::RecordTable::Bonds, k, model::BondPart::Wire});
    const render::MeshGroup& group = model.Groups[wire.Mesh];
    EXPECT_EQ(group.Name, "wires");
    EXPECT_GT(wire.Count, 0U);
    for (std::size_t t = wire.First; t < wire.First + wire.Count; ++t)
      for (const std::uint32_t corner : group.Meshes[0].second.Triangles[t]) {
        const model::SceneVector& point = group.Meshes[0].second.Points[corner];
        EXPECT_NEAR(double(point.X) * scale, middles[k][0], 15.51);
        EXPECT_NEAR(double(-point.Z) * scale, middles[k][1], 0.51);
      }
    // Yellow on black, black on white.
    EXPECT_EQ(group.Meshes[0].first.Red, 1.0F);
    EXPECT_EQ(model.Light[wire.Mesh].Red, 0.0F);
  }
}

}  // namespace
}  // namespace yax
