#include "gl_recorder/gl_recorder.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

namespace {

using gl_recorder::Recorder;

constexpr auto NewList = [](GLenum mode) { glNewList(glGenLists(1), mode); };

TEST(GlRecorder, NotesWhatGlForbidsOrLeavesOpen) {
  const struct {
    const char* error;
    void (*calls)();
  } cases[] = {
      {"glVertex3f outside glBegin and glEnd", [] { glVertex3f(0, 0, 0); }},
      {"glEnd() without a glBegin", [] { glEnd(); }},
      {"glBegin between glBegin and glEnd", [] { glBegin(GL_QUADS), glBegin(GL_QUADS); }},
      {"glLineWidth between glBegin and glEnd", [] { glBegin(GL_QUADS), glLineWidth(2); }},
      {"glBegin without a glEnd", [] { glBegin(GL_QUADS); }},
      {"glNewList of a name that glGenLists did not return: 7",
       [] { glNewList(7, GL_COMPILE), glEndList(); }},
      {"glNewList inside list 1", [] { NewList(GL_COMPILE), NewList(GL_COMPILE); }},
      {"glNewList without a glEndList", [] { NewList(GL_COMPILE); }},
      {"glEndList() without a glNewList", [] { glEndList(); }},
      {"glCallList of a missing list: 3", [] { glCallList(3); }},
      {"glPop of an empty stack: Matrix in GL_MODELVIEW", [] { glPopMatrix(); }},
      {"glPop of an empty stack: Matrix in GL_PROJECTION",
       [] { glPushMatrix(), glMatrixMode(GL_PROJECTION), glPopMatrix(); }},
      {"glPush without a glPop: Matrix in GL_MODELVIEW", [] { glPushMatrix(); }},
      {"glPop of an empty stack: Attrib", [] { glPopAttrib(); }},
      {"glPush without a glPop: Attrib", [] { glPushAttrib(1); }},
      {"glLoadIdentity() without a context", [] { gl_recorder::Current().DropContext(), glLoadIdentity(); }},
      // A glEnd without glBegin is accepted right before the end of a drawing list, and nowhere else.
      {"", [] { NewList(GL_COMPILE_AND_EXECUTE), glEnd(), glEndList(), glCallList(1); }},
      {"glEnd() without a glBegin", [] { NewList(GL_COMPILE), glEnd(), glEndList(); }},
      {"glEnd() without a glBegin, and then glEnd()",
       [] { NewList(GL_COMPILE_AND_EXECUTE), glEnd(), glEnd(), glEndList(); }}};
  for (const auto& [error, calls] : cases) {
    Recorder recorder;
    calls();
    recorder.Finish();
    EXPECT_EQ(recorder.Errors().empty() ? "" : recorder.Errors().front(), error);
  }
}

}  // namespace
