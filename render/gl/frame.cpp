#include "render/gl/frame.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cmath>

#include "model/arithmetic.h"
#include "render/gl/gl_pen.h"

namespace render::gl {

namespace {

constexpr GLfloat LightPosition[] = {0.0F, 2.0F, 2.0F, 1.0F};
constexpr GLfloat AmbientLight[] = {0.65F, 0.65F, 0.65F, 1.0F};
// Deliberate: highlights are red.
constexpr GLfloat SpecularColour[] = {1.0F, 0.0F, 0.0F, 1.0F};
constexpr GLint kShininess = 50;

void SetProjection(const PixelSize& size, double nearPlane, double farPlane) {
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  gluPerspective(kFieldOfView, double(AspectRatioOf(size)), nearPlane, farPlane);
}

/// Measures with a separate scene: a scene keeps state from pad to pad, which must not affect the drawn one.
Eye EyeOf(NamedView view, const SceneInputs& inputs, const PixelSize& size) {
  FitPen pen;
  Scene(inputs, pen).DrawPackage();
  return pen.Fit(view, size);
}

}  // namespace

float AspectRatioOf(const PixelSize& size) {
  return size.Height > 0 ? model::Single(double(size.Width) / double(size.Height)) : 0.0F;
}

void SetClearColour(const Appearance& appearance) {
  glClearColor(GLclampf(appearance.BackRed), GLclampf(appearance.BackGreen), GLclampf(appearance.BackBlue),
               0.0F);
}

void SetViewport(const PixelSize& size) { glViewport(0, 0, size.Width, size.Height); }

void SetUpView(const PixelSize& size, const Appearance& appearance) {
  glEnable(GL_DEPTH_TEST);
  glEnable(GL_DITHER);
  glDepthFunc(GL_LESS);
  glClearDepth(1.0);
  SetClearColour(appearance);

  SetProjection(size, 1.0, 2000.0);
  SetViewport(size);

  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glLightfv(GL_LIGHT0, GL_POSITION, LightPosition);
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, AmbientLight);
  glEnable(GL_LIGHTING);
  glEnable(GL_LIGHT0);
  glShadeModel(GL_SMOOTH);
  glFrontFace(GL_CCW);
  glMaterialfv(GL_FRONT, GL_SPECULAR, SpecularColour);
  glMateriali(GL_FRONT, GL_SHININESS, kShininess);
}

void DrawFrame(const Camera& camera, const ModelRotation& rotation, float depth, const SceneList& list) {
  const double cosine = std::cos(double(camera.CamYaw));
  const double sine = std::sin(double(camera.CamYaw));
  const double x = double(camera.CamX);
  const double y = double(camera.CamY);
  const double z = double(camera.CamZ);
  const double lookY = double(model::Add16(camera.CamY, camera.CamLook));

  glLoadIdentity();
  gluLookAt(x, y, z, x + 100.0 * cosine, lookY, z - 100.0 * sine, 0.0, 1.0, 0.0);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glPushMatrix();
  glTranslatef(0.0F, 0.0F, -depth);
  glRotatef(rotation.RotPitch, 0.1F, 0.0F, 0.0F);
  glRotatef(rotation.RotYaw, 0.0F, 0.1F, 0.0F);
  glRotatef(rotation.RotRoll, 0.0F, 0.0F, 1.0F);
  list.Call();
  glPopMatrix();
}

void DrawFrame(const Eye& eye, const PixelSize& size, const SceneList& list) {
  SetProjection(size, eye.Near, eye.Far);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  gluLookAt(eye.Position[0], eye.Position[1], eye.Position[2], eye.Target[0], eye.Target[1], eye.Target[2],
            eye.Up[0], eye.Up[1], eye.Up[2]);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  list.Call();
}

void DrawPicture(const SceneInputs& inputs, const Viewpoint& viewpoint, const PixelSize& size) {
  SetUpView(size, inputs.Appearance);
  GlPen pen;
  Scene scene(inputs, pen);
  // Use a display list as the window does: without one the driver lights the same faces slightly differently.
  SceneList list;
  list.CompileCube(scene);
  if (viewpoint.View) return DrawFrame(EyeOf(*viewpoint.View, inputs, size), size, list);
  DrawFrame(viewpoint.Camera, viewpoint.Rotation, inputs.Package.CompW, list);
}

}  // namespace render::gl
