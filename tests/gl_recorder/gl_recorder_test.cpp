#include "tests/gl_recorder/gl_recorder.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

namespace {

using gl_recorder::Recorder;

/// The first error that some calls bring up, those found at the end included.
template <class Calls>
std::string ErrorOf(Calls&& calls) {
  Recorder recorder;
  calls();
  recorder.Finish();
  return recorder.Errors().empty() ? "" : recorder.Errors().front();
}

TEST(GlRecorder, TakesASceneListWithItsLoneEnd) {
  EXPECT_EQ(ErrorOf([] {
              const GLuint list = glGenLists(1);
              glNewList(list, GL_COMPILE_AND_EXECUTE);
              glBegin(GL_QUADS);
              glVertex3f(0, 0, 0);
              glEnd();
              glEnd();
              glEndList();
              glCallList(list);
            }),
            "");
}

TEST(GlRecorder, NotesWhatGlForbidsOrLeavesOpen) {
  EXPECT_EQ(ErrorOf([] { glVertex3f(0, 0, 0); }), "glVertex3f outside glBegin and glEnd");
  EXPECT_EQ(ErrorOf([] { glNormal3f(0, 0, 0); }), "glNormal3f outside glBegin and glEnd");
  EXPECT_EQ(ErrorOf([] { glEnd(); }), "glEnd() without a glBegin");
  EXPECT_EQ(ErrorOf([] { glBegin(GL_QUADS), glBegin(GL_QUADS); }), "glBegin between glBegin and glEnd");
  EXPECT_EQ(ErrorOf([] { glBegin(GL_QUADS), glLineWidth(2); }), "glLineWidth between glBegin and glEnd");
  EXPECT_EQ(ErrorOf([] { glBegin(GL_QUADS); }), "glBegin without a glEnd");
  EXPECT_EQ(ErrorOf([] { glNewList(7, GL_COMPILE), glEndList(); }), "glNewList of a name never given: 7");
  EXPECT_EQ(ErrorOf([] { glNewList(glGenLists(1), GL_COMPILE), glNewList(glGenLists(1), GL_COMPILE); }),
            "glNewList inside list 1");
  EXPECT_EQ(ErrorOf([] { glNewList(glGenLists(1), GL_COMPILE); }), "glNewList without a glEndList");
  EXPECT_EQ(ErrorOf([] { glEndList(); }), "glEndList() without a glNewList");
  EXPECT_EQ(ErrorOf([] { glCallList(3); }), "glCallList of no list: 3");
  EXPECT_EQ(ErrorOf([] { glPopMatrix(); }), "glPopMatrix() of an empty stack");
  EXPECT_EQ(ErrorOf([] { glPushMatrix(), glMatrixMode(GL_PROJECTION), glPopMatrix(); }),
            "glPopMatrix() of an empty stack");
  EXPECT_EQ(ErrorOf([] { glPushMatrix(); }), "glPushMatrix() without a glPopMatrix() in GL_MODELVIEW");
  EXPECT_EQ(ErrorOf([] { glPopAttrib(); }), "glPopAttrib() of an empty stack");
  EXPECT_EQ(ErrorOf([] { glPushAttrib(1); }), "glPushAttrib without a glPopAttrib");
  EXPECT_EQ(ErrorOf([] { gl_recorder::Current().DropContext(), glLoadIdentity(); }),
            "glLoadIdentity() without a context");
}

TEST(GlRecorder, TakesALoneEndOnlyRightBeforeTheEndOfADrawingList) {
  EXPECT_EQ(ErrorOf([] { glNewList(glGenLists(1), GL_COMPILE), glEnd(), glEndList(); }),
            "glEnd() without a glBegin");
  EXPECT_EQ(ErrorOf([] { glNewList(glGenLists(1), GL_COMPILE_AND_EXECUTE), glEnd(), glEnd(), glEndList(); }),
            "glEnd() without a glBegin, and then glEnd()");
}

TEST(GlRecorder, KeepsListsAndPrintsThemAsText) {
  Recorder recorder;
  recorder.SetNextListName(40);
  const GLuint list = glGenLists(1);
  EXPECT_EQ(list, 40U);
  glNewList(list, GL_COMPILE);
  glBegin(GL_LINES);
  glVertex3d(0.5, -0.0, -2);
  glEnd();
  glEndList();
  EXPECT_EQ(gl_recorder::TextOf(recorder.List(list)),
            "glBegin(GL_LINES)\n  glVertex3d(0.5, 0, -2)\nglEnd()\n");
  glNewList(list, GL_COMPILE);
  glEndList();
  EXPECT_TRUE(recorder.HasList(list));
  EXPECT_TRUE(recorder.List(list).empty());
  recorder.NewContext();
  EXPECT_FALSE(recorder.HasList(list));
  EXPECT_EQ(glGenLists(2), 1U);
  EXPECT_EQ(glGenLists(1), 3U);
}

}  // namespace
