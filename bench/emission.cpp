#include "bench/emission.h"

#include <GL/gl.h>

namespace bench {

namespace {

std::array<float, 4> MaterialOf(const model::Colour& paint) {
  return {paint.Red, paint.Green, paint.Blue, 1.0F};
}

void EmitQuad(const model::Face& face, const std::array<float, 4>& material) {
  glBegin(GL_QUADS);
  glNormal3f(face.Normal.X, face.Normal.Y, face.Normal.Z);
  for (const model::SceneVector& corner : face.Corners) {
    glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, material.data());
    glVertex3f(corner.X, corner.Y, corner.Z);
  }
  glEnd();
}

void EmitDisc(const model::DiscRim& rim) {
  glBegin(GL_TRIANGLE_FAN);
  for (const model::SceneVector& point : rim) glVertex3f(point.X, point.Y, point.Z);
  glEnd();
}

void EmitStrip(const model::WireStrip& points, const std::array<float, 4>& material) {
  glLineWidth(2.0F);
  glBegin(GL_LINE_STRIP);
  glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, material.data());
  for (const model::SceneVector& point : points)
    glVertex3d(double(point.X), double(point.Y), double(point.Z));
  glEnd();
}

}  // namespace

Emission::Emission(const render::SceneInputs& inputs) { render::Scene(inputs, *this).DrawPackage(); }

void Emission::Count(Shape shape) {
  if (runs_.empty() || runs_.back().shape != shape) runs_.push_back({shape, 0});
  ++runs_.back().count;
}

void Emission::Quad(const model::Face& face) {
  Count(Shape::kQuad);
  quads_.push_back({MaterialOf(face.Paint), face});
}

void Emission::Disc(const model::DiscRim& rim) {
  Count(Shape::kDisc);
  discs_.push_back(rim);
}

void Emission::Strip(const model::WireStrip& points, const model::Colour& paint) {
  Count(Shape::kStrip);
  strips_.push_back({MaterialOf(paint), points});
}

void Emission::Emit() const {
  auto quad = quads_.begin();
  auto disc = discs_.begin();
  auto strip = strips_.begin();
  for (const Run& run : runs_) {
    for (std::size_t i = 0; i < run.count; ++i) {
      switch (run.shape) {
        case Shape::kQuad:
          EmitQuad(quad->face, quad->material);
          ++quad;
          break;
        case Shape::kDisc:
          EmitDisc(*disc++);
          break;
        case Shape::kStrip:
          EmitStrip(strip->points, strip->material);
          ++strip;
          break;
      }
    }
  }
}

void Emission::BuildList() {
  const GLuint fresh = glGenLists(1);
  glNewList(fresh, GL_COMPILE_AND_EXECUTE);
  Emit();
  glEnd();  // without a begin, as in the viewer
  glEndList();
  if (list_ != 0) {
    glNewList(list_, GL_COMPILE);
    glEndList();
  }
  list_ = fresh;
}

}  // namespace bench
