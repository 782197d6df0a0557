#include <cmath>

#include "model/arithmetic.h"
#include "shell/navigation/navigation.h"

namespace shell::navigation {

namespace {

constexpr double kXBound = 40.0;
// Deliberate: 3.142 and 6.28 instead of pi and 2 pi: they decide where a full turn of steps ends.
constexpr double kHalfTurn = 3.142;
constexpr double kFullTurn = 6.28;
constexpr std::int16_t kTilt = 10;
constexpr std::int16_t kMouseTilt = 2;

/// Rounds the heading to single precision; the callers then test for a wrap in double precision. The
/// single 6.28 is a little larger than the double 6.28, so it counts as past a full turn.
void Turn(render::Camera& camera, double degrees) {
  camera.CamYaw = model::Single(double(camera.CamYaw) + degrees * kHalfTurn / 180.0);
}

/// Deliberate: past the full turn the heading starts again at exactly 0, whatever the excess.
void RestartPastFullTurn(render::Camera& camera) {
  if (double(camera.CamYaw) > kFullTurn) camera.CamYaw = 0.0F;
}

}  // namespace

void Navigation::MoveCamera(double distance) {
  const double heading = double(Camera.CamYaw);
  const double dx = std::cos(heading) * distance;
  const double dz = -distance * std::sin(heading);
  // Deliberate: the bounds are lopsided. A move that would reach -40 is reversed before it is made. On the
  // other side only an eye beyond 40 is turned back, so there it swings between 40 and one step more.
  const bool turnedBack = dx + kXBound <= Camera.CamX || Camera.CamX + dx <= -kXBound;
  Camera.CamX = model::Nearest(turnedBack ? Camera.CamX - dx : Camera.CamX + dx);
  Camera.CamZ = model::Nearest(Camera.CamZ + dz);
}

void Navigation::Move_Camera_In(int doubleStep) {
  MoveCamera(doubleStep != 0 ? 2.0 * Camera.CamStep : Camera.CamStep);
  Actions.Repaint();
}

void Navigation::Move_Camera_Out(int doubleStep) {
  MoveCamera(doubleStep != 0 ? -2.0 * Camera.CamStep : -1.0 * Camera.CamStep);
  Actions.Repaint();
}

void Navigation::Turn_Camera_Left() {
  Turn(Camera, 10.0);
  RestartPastFullTurn(Camera);
  Actions.Repaint();
}

void Navigation::Turn_Camera_Right() {
  Turn(Camera, -10.0);
  if (Camera.CamYaw < 0.0F) Camera.CamYaw = model::Single(kFullTurn);
  Actions.Repaint();
}

void Navigation::MouseTurn_Camera_Left(int byDelta) {
  Turn(Camera, byDelta != 0 ? double(Mouse.DeltaX) : 1.0);
  RestartPastFullTurn(Camera);
}

void Navigation::MouseTurn_Camera_Right(int byDelta) {
  // Deliberate: a drag to the right can take the heading below 0 without a wrap; only the upper bound wraps.
  Turn(Camera, byDelta != 0 ? double(Mouse.DeltaX) : -1.0);
  RestartPastFullTurn(Camera);
}

void Navigation::Tilt_Camera_Up() {
  Camera.CamLook = model::Add16(Camera.CamLook, kTilt);
  Actions.Repaint();
}

void Navigation::Tilt_Camera_Down() {
  Camera.CamLook = model::Add16(Camera.CamLook, -kTilt);
  Actions.Repaint();
}

void Navigation::MouseTilt_Camera_Up(int byDelta) {
  Camera.CamLook = model::Nearest(Camera.CamLook + (byDelta != 0 ? double(Mouse.DeltaY) : kMouseTilt));
}

void Navigation::MouseTilt_Camera_Down(int byDelta) {
  Camera.CamLook = model::Nearest(Camera.CamLook + (byDelta != 0 ? double(Mouse.DeltaY) : -kMouseTilt));
}

void Navigation::Slide(int index) {
  switch (index) {
    case 0:
      Camera.CamX = model::Add16(Camera.CamX, -1);
      break;
    case 1:
      Camera.CamX = model::Add16(Camera.CamX, 1);
      break;
    case 2:
      Camera.CamY = model::Add16(Camera.CamY, 1);
      break;
    case 3:
      Camera.CamY = model::Add16(Camera.CamY, -1);
      break;
    default:
      break;
  }
  Actions.Repaint();
}

void Navigation::Trans_Click(int index) {
  Slide(index);
  Actions.FocusDummy();
}

}  // namespace shell::navigation
