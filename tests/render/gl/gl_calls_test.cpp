#include <GL/gl.h>

#include "gl_recorder/gl_test.h"
#include "render/gl/frame.h"
#include "render/gl/gl_pen.h"
#include "render/gl/grid.h"
#include "render/gl/read_back.h"
#include "render/gl/scene_list.h"
#include "tests/render/scene_test.h"

namespace {

using gl_recorder::Call;

class GlCallsTest : public GlTest {
 protected:
  model::Package package;
  model::WireBondSettings settings;
  render::Appearance appearance;
  model::WireSelection selection;
  render::gl::GlPen pen;
  render::Scene scene{{package, settings, appearance, selection}, pen};
  render::gl::SceneList list;
};

TEST_F(GlCallsTest, QuadSetsItsNormalOnceAndItsMaterialBeforeEachCorner) {
  // "Black" is never the very dark blue of the second entry of that name; a name that is unknown is black
  // too.
  for (const auto& [name, rgb] : {std::pair("DarkBlue", "0, 0, 0.5"),
                                  {"DarkCyan", "0, 0.5, 0.5"},
                                  {"LightCyan", "0.5, 1, 1"},
                                  {"Black", "0, 0, 0"},
                                  {"white", "0, 0, 0"}}) {
    // In the scene u = (0 0 4) and v = (3 4 0), so u x v = (-16 12 0), of length 20; the normal is the other
    // way.
    model::DrawQuad(pen, {0, 0, 7}, {0, 4, 7}, {3, 4, 11}, {3, 0, 11}, name);
    std::string expected = "glBegin(GL_QUADS)\n  glNormal3f(0.8, -0.6, 0)\n";
    for (const char* corner : {"0, 7, 0", "0, 7, 4", "3, 11, 4", "3, 11, 0"})
      ((expected += "  glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, ") += rgb) +=
          std::string(", 1)\n  glVertex3f(") + corner + ")\n";
    EXPECT_EQ(Calls(), expected + "glEnd()\n");
  }
}

TEST_F(GlCallsTest, StripIsTwoPixelsWideWithBothSidesInOneMaterial) {
  pen.Strip({{{1, 2, 3}, {1, 2, 4}, {1, 2, 5}, {1, 2, 6}, {1, 2, 7}, {1, 2, 8}, {0.5F, 0, 0}}}, {1, 1, 0});
  std::string expected =
      "glLineWidth(2)\nglBegin(GL_LINE_STRIP)\n"
      "  glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, 1, 1, 0, 1)\n";
  for (const char* point : {"1, 2, 3", "1, 2, 4", "1, 2, 5", "1, 2, 6", "1, 2, 7", "1, 2, 8", "0.5, 0, 0"})
    expected += std::string("  glVertex3d(") + point + ")\n";
  EXPECT_EQ(Calls(), expected + "glEnd()\n");
}

/// The calls of a log that open, close or call lists, and the one before each end.
std::string ListCalls(const std::vector<Call>& log) {
  std::string text;
  for (std::size_t i = 0; i < log.size(); ++i) {
    if (log[i].Name == "glEndList") text += log[i - 1].Text + " ";
    if (log[i].Name.ends_with("List") || log[i].Name == "glGenLists") text += log[i].Text + "\n";
  }
  return text;
}

TEST_F(GlCallsTest, EachBuildTakesAFreshListAndEmptiesTheOneItReplaces) {
  package = PackageOf("COMPL 4\nCOMPW 6\nCOMPZ 1\n");
  list.BuildCube(scene);
  EXPECT_EQ(list.Number(), 1);
  // The end without a begin is the last call of the list.
  EXPECT_EQ(ListCalls(gl.Log()),
            "glGenLists(1)\nglNewList(1, GL_COMPILE_AND_EXECUTE)\nglEnd() glEndList()\n");
  const std::vector<Call> first = gl.List(1);
  ASSERT_EQ(first.size(), 5U * 11U + 1U);
  EXPECT_EQ(first.back().Text + first[first.size() - 2].Text, "glEnd()glEnd()");

  gl.ClearLog();
  list.BuildCube(scene);
  EXPECT_EQ(list.Number(), 2);
  EXPECT_EQ(ListCalls(gl.Log()),
            "glGenLists(1)\nglNewList(2, GL_COMPILE_AND_EXECUTE)\nglEnd() glEndList()\n"
            "glNewList(1, GL_COMPILE)\nglNewList(1, GL_COMPILE) glEndList()\n");
  EXPECT_TRUE(gl.List(1).empty());
  EXPECT_EQ(gl_recorder::TextOf(gl.List(2)), gl_recorder::TextOf(first));
}

TEST_F(GlCallsTest, ListNamesFit16Bits) {
  package.CompZ = 1.0F;
  gl.SetNextListName(32767);
  list.BuildCube(scene);
  EXPECT_EQ(list.Number(), 32767);
  gl.ClearLog();
  EXPECT_EQ(FaultOf([&] { list.BuildCube(scene); }), "Run-time error: Overflow (display list 32768)");
  EXPECT_EQ(Calls(), "glGenLists(1)\n");
  list.Call();
  EXPECT_EQ(Calls(), "glCallList(32767)\n");
  render::gl::Grid grid;
  EXPECT_THROW(grid.BuildGrid(), model::Overflow);
}

TEST_F(GlCallsTest, GridIsASquareOfLinesFiveApart) {
  render::gl::Grid grid;
  grid.BuildGrid();
  const std::vector<Call> square = gl.List(1);
  ASSERT_EQ(square.size(), 2U + 84U);
  const auto line = [&](std::size_t i) { return square[1 + 2 * i].Text + square[2 + 2 * i].Text; };
  EXPECT_EQ(square.front().Text, "glBegin(GL_LINES)");
  EXPECT_EQ(line(0), "glVertex3f(-50, 0, -50)glVertex3f(-50, 0, 50)");
  EXPECT_EQ(line(1), "glVertex3f(-45, 0, -50)glVertex3f(-45, 0, 50)");
  EXPECT_EQ(line(20), "glVertex3f(50, 0, -50)glVertex3f(50, 0, 50)");
  EXPECT_EQ(line(21), "glVertex3f(50, 0, -50)glVertex3f(-50, 0, -50)");
  EXPECT_EQ(line(41), "glVertex3f(50, 0, 50)glVertex3f(-50, 0, 50)");
  EXPECT_EQ(gl.Log().front().Text + gl.Log().back().Text, "glPushMatrix()glPopMatrix()");
  EXPECT_NE(gl_recorder::TextOf(gl.Log()).find("glNewList(1, GL_COMPILE)"), std::string::npos);
}

std::string Wall(const char* place, const char* axis, const char* number) {
  return std::string("    glPushMatrix()\n      glTranslatef(") + place +
         ")\n      glPushMatrix()\n        glRotatef(90, " + axis + ")\n        glCallList(" + number +
         ")\n      glPopMatrix()\n    glPopMatrix()\n";
}

TEST_F(GlCallsTest, GridBoxHasAFloorAndFourWalls) {
  render::gl::Grid grid;
  for (const char* number : {"0", "1"}) {
    grid.DisplayGrid();
    // 0x0B50 is GL_LIGHTING, taken for a mask.
    EXPECT_EQ(Calls(), std::string("glPushAttrib(0x0B50)\n  glDisable(GL_LIGHTING)\n  glPushMatrix()\n") +
                           "    glColor3ub(0, 255, 0)\n    glCallList(" + number + ")\n" +
                           Wall("0, 50, -50", "1, 0, 0", number) + Wall("0, 50, 50", "1, 0, 0", number) +
                           Wall("-50, 50, 0", "0, 0, 1", number) + Wall("50, 50, 0", "0, 0, 1", number) +
                           "  glPopMatrix()\nglPopAttrib()\nglEnable(GL_LIGHTING)\n");
    grid.BuildGrid();
    gl.ClearLog();
  }
}

TEST_F(GlCallsTest, FramePlacesTheEyeClearsTurnsTheModelAndReplaysTheList) {
  // Heading 0 looks along +x: 100 ahead, with the look height added to the eye's.
  const render::Camera camera{.CamX = 1, .CamY = -2, .CamZ = 5, .CamYaw = 0.0F, .CamLook = 30};
  render::gl::DrawFrame(camera, {90.0F, 45.0F, 0.0F}, 2.5F, list);
  // 0x4100 are colour and depth.
  EXPECT_EQ(Calls(),
            "glLoadIdentity()\ngluLookAt(1, -2, 5, 101, 28, 5, 0, 1, 0)\nglClear(0x4100)\nglPushMatrix()\n"
            "  glTranslatef(0, 0, -2.5)\n  glRotatef(90, 0.1, 0, 0)\n  glRotatef(45, 0, 0.1, 0)\n"
            "  glRotatef(0, 0, 0, 1)\n  glCallList(0)\nglPopMatrix()\n");
  // The start-up heading of 1.56: cos 1.56 = 0.0107961, sin 1.56 = 0.9999417, along -z.
  render::gl::DrawFrame({}, {}, 0.0F, list);
  const std::vector<double>& eye = gl.Log()[1].Numbers;
  EXPECT_NEAR(eye[3], 1.07961, 1e-4);
  EXPECT_NEAR(eye[5], 5.0 - 99.99417, 1e-4);
}

TEST_F(GlCallsTest, FrameFromAnEyeKeepsTheAspectOfThePicture) {
  const render::Eye eye{.Position = {1, 2, 9}, .Target = {1, 2, 0}, .Up = {0, 1, 0}, .Near = 3, .Far = 20};
  render::gl::DrawFrame(eye, {300, 100}, list);
  EXPECT_EQ(Calls(),
            "glMatrixMode(GL_PROJECTION)\nglLoadIdentity()\ngluPerspective(60, 3, 3, 20)\n"
            "glMatrixMode(GL_MODELVIEW)\nglLoadIdentity()\ngluLookAt(1, 2, 9, 1, 2, 0, 0, 1, 0)\n"
            "glClear(0x4100)\nglCallList(0)\n");
}

TEST_F(GlCallsTest, FrameFaultsBeforeItsFirstCallWhenTheTargetLeaves16Bits) {
  EXPECT_THROW(render::gl::DrawFrame({.CamY = 32767, .CamLook = 1}, {}, 0.0F, list), model::Overflow);
  EXPECT_THROW(render::gl::DrawFrame({.CamY = -32768, .CamLook = -1}, {}, 0.0F, list), model::Overflow);
  EXPECT_EQ(Calls(), "");
  EXPECT_NO_THROW(render::gl::DrawFrame({.CamY = 32767, .CamLook = -10}, {}, 0.0F, list));
}

}  // namespace
