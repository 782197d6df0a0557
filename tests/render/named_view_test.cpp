#include "render/named_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <glm/ext/matrix_clip_space.hpp>
#include <glm/ext/matrix_transform.hpp>
#include <glm/geometric.hpp>
#include <vector>

namespace render {
namespace {

constexpr NamedView kViews[] = {NamedView::Top,  NamedView::Bottom, NamedView::Front, NamedView::Back,
                                NamedView::Left, NamedView::Right,  NamedView::Iso};

/// The box of the points in a perspective picture, whose edges and planes are at -1 and 1.
struct Extent {
  glm::dvec3 Low{9.0}, High{-9.0};
};

Extent ExtentOf(const Eye& eye, const PixelSize& size, const std::vector<model::SceneVector>& points) {
  const glm::dmat4 picture =
      glm::perspective(glm::radians(60.0), double(size.Width) / size.Height, eye.Near, eye.Far) *
      glm::lookAt(eye.Position, eye.Target, eye.Up);
  Extent extent;
  for (const model::SceneVector& point : points) {
    const glm::dvec4 at = picture * glm::dvec4(double(point.X), double(point.Y), double(point.Z), 1.0);
    extent = {glm::min(extent.Low, glm::dvec3(at) / at.w), glm::max(extent.High, glm::dvec3(at) / at.w)};
  }
  return extent;
}

// A pyramid off the origin: no view sees it symmetrically.
const std::vector<model::SceneVector> kPyramid = {{2, 0, -3}, {12, 0, -3}, {12, 0, 4}, {2, 0, 4},
                                                  {3, 5, -2}, {3, 5, -2},  {3, 5, -2}};

FitPen Drawn(const std::vector<model::SceneVector>& points) {
  FitPen pen;
  model::WireStrip strip{};
  std::copy(points.begin(), points.end(), strip.begin());
  pen.Strip(strip, {});
  return pen;
}

TEST(NamedView, FillsThePictureUpToItsMarginAndStandsInItsMiddle) {
  const FitPen pen = Drawn(kPyramid);
  for (const NamedView view : kViews) {
    for (const PixelSize& size : {PixelSize{1024, 768}, {300, 900}, {2000, 100}}) {
      SCOPED_TRACE(testing::Message() << int(view) << " at " << size.Width << "x" << size.Height);
      const Eye eye = pen.Fit(view, size);
      const Extent extent = ExtentOf(eye, size, kPyramid);
      // The larger of both directions ends 5 % before the edge, the other one earlier.
      EXPECT_NEAR(std::max(extent.High.x, extent.High.y), 1.0 / 1.05, 1e-6);
      EXPECT_NEAR(extent.Low.x, -extent.High.x, 1e-6);
      EXPECT_NEAR(extent.Low.y, -extent.High.y, 1e-6);
      EXPECT_GT(eye.Near, 0.0);
      EXPECT_GT(extent.Low.z, -1.0);
      EXPECT_LT(extent.High.z, 1.0);
    }
  }
}

TEST(NamedView, LooksFromTheSideThatItsNameSays) {
  const FitPen pen = Drawn(kPyramid);
  // Pads and wires put the package's positive y at the scene's negative z.
  const std::pair<NamedView, glm::dvec3> cases[] = {
      {NamedView::Top, {0, 1, 0}},   {NamedView::Bottom, {0, -1, 0}}, {NamedView::Front, {0, 0, 1}},
      {NamedView::Back, {0, 0, -1}}, {NamedView::Left, {-1, 0, 0}},   {NamedView::Right, {1, 0, 0}}};
  for (const auto& [view, from] : cases) {
    const Eye eye = pen.Fit(view, {100, 100});
    EXPECT_NEAR(glm::dot(glm::normalize(eye.Position - eye.Target), from), 1.0, 1e-9) << int(view);
  }
  const Eye iso = pen.Fit(NamedView::Iso, {100, 100});
  const glm::dvec3 fromIso = glm::normalize(iso.Position - iso.Target);
  for (int axis = 0; axis < 3; ++axis) EXPECT_NEAR(fromIso[axis], 1 / std::sqrt(3.0), 1e-9);
  // The package's y runs upwards from the top.
  EXPECT_NEAR(pen.Fit(NamedView::Top, {100, 100}).Up[2], -1.0, 1e-9);
}

TEST(NamedView, NeedsNoScene) {
  for (const NamedView view : kViews) {
    for (const Eye& eye :
         {FitPen().Fit(view, {4, 3}), Drawn(std::vector(7, model::SceneVector{1, 1, 1})).Fit(view, {4, 3})}) {
      EXPECT_GT(eye.Near, 0.0);
      EXPECT_GT(eye.Far, eye.Near);
      EXPECT_TRUE(std::isfinite(eye.Position[0] + eye.Position[1] + eye.Position[2]));
    }
  }
}

}  // namespace
}  // namespace render
