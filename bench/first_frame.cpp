#include "bench/first_frame.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cmath>

#include "render/camera.h"

namespace bench {

void FirstFrame(unsigned list, float depth) {
  const render::Camera camera;
  const double yaw = double(camera.CamYaw);
  glLoadIdentity();
  gluLookAt(camera.CamX, camera.CamY, camera.CamZ, camera.CamX + 100.0 * std::cos(yaw), camera.CamY,
            camera.CamZ - 100.0 * std::sin(yaw), 0.0, 1.0, 0.0);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glPushMatrix();
  glTranslatef(0.0F, 0.0F, -depth);
  glRotatef(90.0F, 1.0F, 0.0F, 0.0F);
  glCallList(list);
  glPopMatrix();
}

}  // namespace bench
