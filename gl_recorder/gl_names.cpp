// The inventory of all OpenGL and GLU routines that the program calls: without one of them the unit tests do
// not link.

#include <GL/gl.h>
#include <GL/glu.h>

#include <cstdio>

#include "gl_recorder/gl_recorder.h"

using gl_recorder::Argument;
using gl_recorder::Current;
using Place = gl_recorder::Recorder::Place;

namespace {

Argument Value(GLenum value) { return {double(value), gl_recorder::NameOf(value)}; }

Argument Mask(GLbitfield mask) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%04X", mask);
  return {double(mask), text};
}

}  // namespace

// A routine that is only recorded, inside glBegin and glEnd or outside: name, parameters, arguments.
#define OUTSIDE(name, parameters, ...) \
  void name parameters { Current().Take(Place::Outside, #name, {__VA_ARGS__}); }
#define INSIDE(name, parameters, ...) \
  void name parameters { Current().Take(Place::Inside, #name, {__VA_ARGS__}); }
#define ANYWHERE(name, parameters, ...) \
  void name parameters { Current().Take(Place::Anywhere, #name, {__VA_ARGS__}); }
#define FOUR(values) values[0], values[1], values[2], values[3]

extern "C" {

// Primitives and their contents.
void glBegin(GLenum mode) { Current().Begin(mode); }
void glEnd() { Current().End(); }
INSIDE(glVertex3f, (GLfloat x, GLfloat y, GLfloat z), x, y, z)
INSIDE(glVertex3d, (GLdouble x, GLdouble y, GLdouble z), x, y, z)
INSIDE(glNormal3f, (GLfloat x, GLfloat y, GLfloat z), x, y, z)
ANYWHERE(glMaterialfv, (GLenum face, GLenum name, const GLfloat* v), Value(face), Value(name), FOUR(v))
ANYWHERE(glMateriali, (GLenum face, GLenum name, GLint v), Value(face), Value(name), double(v))
ANYWHERE(glColor3ub, (GLubyte red, GLubyte green, GLubyte blue), double(red), double(green), double(blue))

// Lists.
GLuint glGenLists(GLsizei range) { return Current().GenLists(range); }
void glNewList(GLuint list, GLenum mode) { Current().NewList(list, mode); }
void glEndList() { Current().EndList(); }
void glCallList(GLuint list) { Current().CallList(list); }

// Matrices.
OUTSIDE(glMatrixMode, (GLenum mode), Value(mode))
void glPushMatrix() { Current().Nest(1, "Matrix", {}); }
void glPopMatrix() { Current().Nest(-1, "Matrix", {}); }
OUTSIDE(glLoadIdentity, ())
OUTSIDE(glTranslatef, (GLfloat x, GLfloat y, GLfloat z), x, y, z)
OUTSIDE(glRotatef, (GLfloat angle, GLfloat x, GLfloat y, GLfloat z), angle, x, y, z)
OUTSIDE(gluPerspective, (GLdouble angle, GLdouble aspect, GLdouble from, GLdouble to), angle, aspect, from,
        to)
OUTSIDE(gluLookAt,
        (GLdouble x, GLdouble y, GLdouble z, GLdouble toX, GLdouble toY, GLdouble toZ, GLdouble upX,
         GLdouble upY, GLdouble upZ),
        x, y, z, toX, toY, toZ, upX, upY, upZ)

// State.
void glPushAttrib(GLbitfield mask) { Current().Nest(1, "Attrib", {Mask(mask)}); }
void glPopAttrib() { Current().Nest(-1, "Attrib", {}); }
OUTSIDE(glEnable, (GLenum what), Value(what))
OUTSIDE(glDisable, (GLenum what), Value(what))
OUTSIDE(glDepthFunc, (GLenum function), Value(function))
OUTSIDE(glFrontFace, (GLenum mode), Value(mode))
OUTSIDE(glShadeModel, (GLenum mode), Value(mode))
OUTSIDE(glLineWidth, (GLfloat width), width)
OUTSIDE(glLightfv, (GLenum light, GLenum name, const GLfloat* v), Value(light), Value(name), FOUR(v))
OUTSIDE(glLightModelfv, (GLenum name, const GLfloat* v), Value(name), FOUR(v))
OUTSIDE(glViewport, (GLint x, GLint y, GLsizei w, GLsizei h), double(x), double(y), double(w), double(h))

// The frame.
OUTSIDE(glClearColor, (GLclampf red, GLclampf green, GLclampf blue, GLclampf alpha), red, green, blue, alpha)
OUTSIDE(glClearDepth, (GLclampd depth), depth)
OUTSIDE(glClear, (GLbitfield mask), Mask(mask))
OUTSIDE(glReadBuffer, (GLenum buffer), Value(buffer))
OUTSIDE(glPixelStorei, (GLenum name, GLint value), Value(name), double(value))

OUTSIDE(glReadPixels, (GLint x, GLint y, GLsizei w, GLsizei h, GLenum format, GLenum type, void*), double(x),
        double(y), double(w), double(h), Value(format), Value(type))

}  // extern "C"
