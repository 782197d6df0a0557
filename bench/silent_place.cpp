// Empty versions of the GL routines that a build of the list calls: the time that remains is the viewer's
// share.
#include <GL/gl.h>

#include "bench/drawing_place.h"

namespace bench {

std::unique_ptr<render::gl::GlSurface> OpenDrawingPlace() { return nullptr; }

}  // namespace bench

extern "C" {

void glBegin(GLenum) {}
void glEnd() {}
void glVertex3f(GLfloat, GLfloat, GLfloat) {}
void glVertex3d(GLdouble, GLdouble, GLdouble) {}
void glNormal3f(GLfloat, GLfloat, GLfloat) {}
void glMaterialfv(GLenum, GLenum, const GLfloat*) {}
void glLineWidth(GLfloat) {}
GLuint glGenLists(GLsizei) { return 1; }
void glNewList(GLuint, GLenum) {}
void glEndList() {}
void glCallList(GLuint) {}

}  // extern "C"
