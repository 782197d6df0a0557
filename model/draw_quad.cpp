#include "model/draw_quad.h"

#include <cmath>

#include "model/arithmetic.h"

namespace model {

namespace {

/// The package's height is the scene's vertical axis.
SceneVector ToScene(const PackagePoint& point) { return {point.X, point.Z, point.Y}; }

SceneVector Difference(const SceneVector& a, const SceneVector& b) {
  return {Single(double(a.X) - double(b.X)), Single(double(a.Y) - double(b.Y)),
          Single(double(a.Z) - double(b.Z))};
}

}  // namespace

PackagePoint Corner(double x, double y, double z) { return {Single(x), Single(y), Single(z)}; }

void Normalize(SceneVector& vector) {
  const double x = double(vector.X);
  const double y = double(vector.Y);
  const double z = double(vector.Z);
  const double length = double(Single(std::sqrt(y * y + x * x + z * z)));
  if (length == 0.0) return;
  vector = {Single(x / length), Single(y / length), Single(z / length)};
}

void CrossProduct(const SceneVector& u, const SceneVector& v, SceneVector& n) {
  n = {Single(double(u.Y) * double(v.Z) - double(u.Z) * double(v.Y)),
       Single(double(u.Z) * double(v.X) - double(u.X) * double(v.Z)),
       Single(double(u.X) * double(v.Y) - double(u.Y) * double(v.X))};
  Normalize(n);
}

void DrawQuad(Pen& pen, const PackagePoint& corner1, const PackagePoint& corner2, const PackagePoint& corner3,
              const PackagePoint& corner4, std::string_view colour) {
  Face face;
  face.Paint = ColourOf(colour);
  face.Corners = {ToScene(corner1), ToScene(corner2), ToScene(corner3), ToScene(corner4)};
  SceneVector n;
  CrossProduct(Difference(face.Corners[1], face.Corners[0]), Difference(face.Corners[2], face.Corners[1]), n);
  face.Normal = {n.X * -1.0F, n.Y * -1.0F, n.Z * -1.0F};
  pen.Quad(face);
}

}  // namespace model
