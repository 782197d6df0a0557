#include "render/gl/gl_pen.h"

#include <GL/gl.h>

#include <array>

namespace render::gl {

namespace {

std::array<GLfloat, 4> MaterialOf(const model::Colour& paint) {
  return {paint.Red, paint.Green, paint.Blue, 1.0F};
}

}  // namespace

void GlPen::Quad(const model::Face& face) noexcept {
  const std::array<GLfloat, 4> material = MaterialOf(face.Paint);
  glBegin(GL_QUADS);
  glNormal3f(face.Normal.X, face.Normal.Y, face.Normal.Z);
  for (const model::SceneVector& corner : face.Corners) {
    // Inside the primitive and before every corner, because the driver then merges neighbouring quads of a
    // list.
    glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, material.data());
    glVertex3f(corner.X, corner.Y, corner.Z);
  }
  glEnd();
}

void GlPen::Disc(const model::DiscRim& rim) noexcept {
  glBegin(GL_TRIANGLE_FAN);
  for (const model::SceneVector& point : rim) glVertex3f(point.X, point.Y, point.Z);
  glEnd();
}

void GlPen::Strip(const model::WireStrip& points, const model::Colour& paint) noexcept {
  const std::array<GLfloat, 4> material = MaterialOf(paint);
  glLineWidth(2.0F);
  glBegin(GL_LINE_STRIP);
  glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, material.data());
  for (const model::SceneVector& point : points)
    glVertex3d(double(point.X), double(point.Y), double(point.Z));
  glEnd();
}

}  // namespace render::gl
