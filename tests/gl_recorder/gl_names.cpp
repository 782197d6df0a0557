// Every name of OpenGL and GLU that the program calls: this file is the inventory. A new one fails to link
// until it is added here.

#include <GL/gl.h>
#include <GL/glu.h>

#include "tests/gl_recorder/gl_recorder.h"

using gl_recorder::Argument;
using gl_recorder::Current;

namespace {

Argument Value(GLenum value) { return {double(value), gl_recorder::NameOf(value)}; }

Argument Mask(GLbitfield mask) {
  std::string text;
  const auto add = [&](GLbitfield bit, const char* name) {
    if (!(mask & bit)) return;
    text += (text.empty() ? "" : " | ");
    text += name;
    mask &= ~bit;
  };
  const double number = mask;
  add(GL_COLOR_BUFFER_BIT, "GL_COLOR_BUFFER_BIT");
  add(GL_DEPTH_BUFFER_BIT, "GL_DEPTH_BUFFER_BIT");
  if (mask != 0) text += " | " + std::to_string(mask);
  return {number, text};
}

}  // namespace

extern "C" {

// Primitives and what stands in them.
void glBegin(GLenum mode) { Current().Begin(mode); }
void glEnd() { Current().End(); }
void glVertex3f(GLfloat x, GLfloat y, GLfloat z) { Current().InsidePrimitive("glVertex3f", {x, y, z}); }
void glVertex3d(GLdouble x, GLdouble y, GLdouble z) { Current().InsidePrimitive("glVertex3d", {x, y, z}); }
void glNormal3f(GLfloat x, GLfloat y, GLfloat z) { Current().InsidePrimitive("glNormal3f", {x, y, z}); }

void glMaterialfv(GLenum face, GLenum name, const GLfloat* values) {
  Current().Anywhere("glMaterialfv", {Value(face), Value(name), values[0], values[1], values[2], values[3]});
}

void glMateriali(GLenum face, GLenum name, GLint value) {
  Current().Anywhere("glMateriali", {Value(face), Value(name), double(value)});
}

void glColor3ub(GLubyte red, GLubyte green, GLubyte blue) {
  Current().Anywhere("glColor3ub", {double(red), double(green), double(blue)});
}

// Lists.
GLuint glGenLists(GLsizei range) { return Current().GenLists(range); }
void glNewList(GLuint list, GLenum mode) { Current().NewList(list, mode); }
void glEndList() { Current().EndList(); }
void glCallList(GLuint list) { Current().CallList(list); }

// Matrices.
void glMatrixMode(GLenum mode) { Current().MatrixMode(mode); }
void glLoadIdentity() { Current().Plain("glLoadIdentity", {}); }
void glPushMatrix() { Current().PushMatrix(); }
void glPopMatrix() { Current().PopMatrix(); }
void glTranslatef(GLfloat x, GLfloat y, GLfloat z) { Current().Plain("glTranslatef", {x, y, z}); }

void glRotatef(GLfloat angle, GLfloat x, GLfloat y, GLfloat z) {
  Current().Plain("glRotatef", {angle, x, y, z});
}

void gluPerspective(GLdouble fieldOfView, GLdouble aspect, GLdouble nearPlane, GLdouble farPlane) {
  Current().Plain("gluPerspective", {fieldOfView, aspect, nearPlane, farPlane});
}

void gluLookAt(GLdouble eyeX, GLdouble eyeY, GLdouble eyeZ, GLdouble targetX, GLdouble targetY,
               GLdouble targetZ, GLdouble upX, GLdouble upY, GLdouble upZ) {
  Current().Plain("gluLookAt", {eyeX, eyeY, eyeZ, targetX, targetY, targetZ, upX, upY, upZ});
}

// State.
void glEnable(GLenum what) { Current().Plain("glEnable", {Value(what)}); }
void glDisable(GLenum what) { Current().Plain("glDisable", {Value(what)}); }
void glPushAttrib(GLbitfield mask) { Current().PushAttrib(mask); }
void glPopAttrib() { Current().PopAttrib(); }
void glDepthFunc(GLenum function) { Current().Plain("glDepthFunc", {Value(function)}); }
void glFrontFace(GLenum mode) { Current().Plain("glFrontFace", {Value(mode)}); }
void glShadeModel(GLenum mode) { Current().Plain("glShadeModel", {Value(mode)}); }
void glLineWidth(GLfloat width) { Current().Plain("glLineWidth", {width}); }

void glLightfv(GLenum light, GLenum name, const GLfloat* values) {
  Current().Plain("glLightfv", {Value(light), Value(name), values[0], values[1], values[2], values[3]});
}

void glLightModelfv(GLenum name, const GLfloat* values) {
  Current().Plain("glLightModelfv", {Value(name), values[0], values[1], values[2], values[3]});
}

void glViewport(GLint x, GLint y, GLsizei width, GLsizei height) {
  Current().Plain("glViewport", {double(x), double(y), double(width), double(height)});
}

// The frame.
void glClearColor(GLclampf red, GLclampf green, GLclampf blue, GLclampf alpha) {
  Current().Plain("glClearColor", {red, green, blue, alpha});
}

void glClearDepth(GLclampd depth) { Current().Plain("glClearDepth", {depth}); }
void glClear(GLbitfield mask) { Current().Plain("glClear", {Mask(mask)}); }
void glReadBuffer(GLenum buffer) { Current().Plain("glReadBuffer", {Value(buffer)}); }

void glPixelStorei(GLenum name, GLint value) {
  Current().Plain("glPixelStorei", {Value(name), double(value)});
}

/// Every row is filled with its number, counted from the bottom as GL does.
void glReadPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format, GLenum type, void* pixels) {
  Current().Plain("glReadPixels",
                  {double(x), double(y), double(width), double(height), Value(format), Value(type)});
  auto* byte = static_cast<GLubyte*>(pixels);
  for (GLsizei row = 0; row < height; ++row) {
    for (GLsizei i = 0; i < 3 * width; ++i) *byte++ = static_cast<GLubyte>(row);
  }
}

}  // extern "C"
