#include "render/gl/grid.h"

#include <GL/gl.h>

#include "render/gl/scene_list.h"

namespace render::gl {

void Grid::BuildGrid() {
  constexpr int kHalf = 50;
  constexpr int kStep = 5;
  glPushMatrix();
  const GLuint name = glGenLists(1);
  try {
    number_ = ListNumber(name);
  } catch (...) {
    glPopMatrix();
    throw;
  }
  glNewList(name, GL_COMPILE);
  glBegin(GL_LINES);
  for (int i = -kHalf; i <= kHalf; i += kStep) {
    glVertex3f(GLfloat(i), 0.0F, GLfloat(-kHalf));
    glVertex3f(GLfloat(i), 0.0F, GLfloat(kHalf));
  }
  for (int j = -kHalf; j <= kHalf; j += kStep) {
    glVertex3f(GLfloat(kHalf), 0.0F, GLfloat(j));
    glVertex3f(GLfloat(-kHalf), 0.0F, GLfloat(j));
  }
  glEnd();
  glEndList();
  glPopMatrix();
}

void Grid::DisplayGrid() const {
  struct Wall {
    GLfloat X, Y, Z;
    GLfloat AxisX, AxisY, AxisZ;
  };
  constexpr Wall kWalls[] = {
      {0.0F, 50.0F, -50.0F, 1.0F, 0.0F, 0.0F},
      {0.0F, 50.0F, 50.0F, 1.0F, 0.0F, 0.0F},
      {-50.0F, 50.0F, 0.0F, 0.0F, 0.0F, 1.0F},
      {50.0F, 50.0F, 0.0F, 0.0F, 0.0F, 1.0F},
  };
  const auto list = static_cast<GLuint>(number_);

  // Deliberate: GL_LIGHTING is the name of a switch, not of an attribute group; as a mask its bits save the
  // viewport, accumulation, depth, lighting and polygon stipple groups.
  glPushAttrib(GL_LIGHTING);
  glDisable(GL_LIGHTING);
  glPushMatrix();
  glColor3ub(0, 255, 0);
  glCallList(list);
  for (const Wall& wall : kWalls) {
    glPushMatrix();
    glTranslatef(wall.X, wall.Y, wall.Z);
    glPushMatrix();
    glRotatef(90.0F, wall.AxisX, wall.AxisY, wall.AxisZ);
    glCallList(list);
    glPopMatrix();
    glPopMatrix();
  }
  glPopMatrix();
  glPopAttrib();
  glEnable(GL_LIGHTING);
}

}  // namespace render::gl
