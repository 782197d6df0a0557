#include <vector>

#include "tests/shell/navigation/navigation_fixture.h"

namespace shell {
namespace {

using NavigationCamera = NavigationTest;

TEST_F(NavigationCamera, KeywordsStepAndRepaintOnce) {
  view->WheelMoved(1);
  EXPECT_EQ(Changes(), "") << "the wheel is not hooked yet";
  // At heading 1.56 a step of 1 is (0.011, -0.9999): x stays, z moves by one.
  for (const auto& [word, changes] : {std::pair("IN", "z 4"),
                                      {"OUT", "z 6"},
                                      {"LEFT", "heading 10"},
                                      {"RIGHT", "heading -10"},
                                      {"UP", "look 10"},
                                      {"DOWN", "look -10"},
                                      {"in", ""}}) {
    Restart();
    view->NavigateByKey(word);
    EXPECT_EQ(Changes(), changes) << word;
    EXPECT_EQ(counts.repaints, *changes == '\0' ? 0 : 1) << word;
  }
}

TEST_F(NavigationCamera, XTurnsBackAtItsLopsidedBounds) {
  // The nearest single to pi lies above pi: its cosine is a hair more than -1, so -39 moves on to -40 and
  // is turned back from there.
  const struct {
    std::int16_t start;
    float heading;
    double distance;
    std::vector<int> path;
  } cases[] = {{39, 0.0F, 1.0, {40, 41, 40, 41, 40}},
               {41, 0.0F, -1.0, {42, 43}},          // -1 + 40 <= 41: even the way home is turned back
               {-39, 0.0F, -1.0, {-38, -39, -38}},  // the step to -40 itself is turned back
               {-38, 0.0F, -1.0, {-39, -38}},
               {-39, 3.14159265F, 1.0, {-40, -39, -40}},
               {-50, 0.0F, 1.0, {-51, -52}},
               {38, 0.0F, 2.0, {40, 42, 40, 42}}};
  for (const auto& [start, heading, distance, path] : cases) {
    view->Camera = {.CamX = start, .CamYaw = heading};
    for (const int x : path) {
      view->MoveCamera(distance);
      EXPECT_EQ(view->Camera.CamX, x) << "from " << start;
    }
  }
  EXPECT_EQ(counts.repaints, 0);
}

TEST_F(NavigationCamera, ComponentsAreRoundedHalvesToEven) {
  view->Camera.CamYaw = 0.0F;
  for (const auto& [distance, x] : {std::pair(0.5, 0), {1.5, 2}, {0.5, 2}}) {
    view->MoveCamera(distance);
    EXPECT_EQ(view->Camera.CamX, x);
  }
  EXPECT_EQ(view->Camera.CamZ, 5);
}

TEST_F(NavigationCamera, HeadingsPastAFullTurnRestartAtZeroAndThoseBelowZeroAt628) {
  // 1.56 + 27 * 0.174556 = 6.273, + 0.174556 = 6.448.
  for (int turn = 1; turn <= 27; ++turn) view->Turn_Camera_Left();
  EXPECT_NEAR(view->Camera.CamYaw, 6.273F, 1e-4F);
  view->Turn_Camera_Left();
  EXPECT_EQ(view->Camera.CamYaw, 0.0F);
  view->Turn_Camera_Right();
  EXPECT_EQ(view->Camera.CamYaw, 6.28F);
  // One right and one left: back on the single 6.28, which is 6.28000021 and so past 6.28.
  view->Turn_Camera_Right();
  EXPECT_NEAR(view->Camera.CamYaw, 6.1054F, 1e-4F);
  view->Turn_Camera_Left();
  EXPECT_EQ(view->Camera.CamYaw, 0.0F);
}

TEST_F(NavigationCamera, MouseTurnsAndTiltsMoveByDeltaOrAFixedStepWithoutRepaint) {
  // One degree is 3.142 / 180 = 0.0174556. To the right there is no wrap below zero.
  const struct {
    void (navigation::Navigation::*turn)(int);
    int byDelta;
    float start, deltaX, heading;
  } turns[] = {{&navigation::Navigation::MouseTurn_Camera_Left, 2, 1.0F, 20.0F, 1.349111F},
               {&navigation::Navigation::MouseTurn_Camera_Left, 0, 1.0F, 20.0F, 1.0174556F},
               {&navigation::Navigation::MouseTurn_Camera_Left, 2, 6.2F, 5.0F, 0.0F},
               {&navigation::Navigation::MouseTurn_Camera_Right, 2, 1.0F, -20.0F, 0.650889F},
               {&navigation::Navigation::MouseTurn_Camera_Right, 0, 1.0F, -20.0F, 0.9825444F},
               {&navigation::Navigation::MouseTurn_Camera_Right, 2, 0.1F, -20.0F, -0.249111F},
               {&navigation::Navigation::MouseTurn_Camera_Right, 2, 6.2F, 5.0F, 0.0F}};
  for (const auto& [turn, byDelta, start, deltaX, heading] : turns) {
    view->Camera.CamYaw = start;
    view->Mouse.DeltaX = deltaX;
    ((*view).*turn)(byDelta);
    EXPECT_NEAR(view->Camera.CamYaw, heading, 1e-6F);
  }
  // -2.5 goes to the even -2; the fixed step is 2.
  view->Mouse.DeltaY = -2.5F;
  for (const auto& [byDelta, up, down] : {std::tuple(1, -2, -2), {0, 2, -2}}) {
    view->Camera.CamLook = 0;
    view->MouseTilt_Camera_Up(byDelta);
    EXPECT_EQ(view->Camera.CamLook, up);
    view->MouseTilt_Camera_Down(byDelta);
    EXPECT_EQ(view->Camera.CamLook, up + down);
  }
  EXPECT_EQ(counts.repaints, 0);
}

TEST_F(NavigationCamera, LoadResetsCameraAndRotationButNotWalkModeAndTicks) {
  view->Camera = {.CamX = 1, .CamY = 2, .CamZ = 3, .CamYaw = 4.0F, .CamStep = 5.0, .CamLook = 6};
  view->ScrollYaw.SetValue(33);
  view->Rotation.RotRoll = 3.0F;
  view->WalkMode = true;
  view->Mouse.PanTick = 2;
  counts = {};
  view->ResetCamera();
  view->ResetRotation();          // the pitch bar stands at 90 already
  EXPECT_EQ(counts.repaints, 3);  // the yaw bar's own change, then both handlers
  EXPECT_EQ(Changes(), "");
  EXPECT_EQ(view->Camera.CamStep, 1.0);
  EXPECT_EQ(view->Rotation.RotRoll, 0.0F);
  EXPECT_TRUE(view->WalkMode);
  EXPECT_EQ(view->Mouse.PanTick, 2);
}

}  // namespace
}  // namespace shell
