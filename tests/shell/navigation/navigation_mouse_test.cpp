#include <limits>
#include <vector>

#include "tests/shell/navigation/navigation_fixture.h"

namespace shell {
namespace {

class NavigationMouse : public NavigationTest {
 protected:
  /// Puts the pointer at (x, y), as a press does.
  void Press(float x, float y) { view->Form_MouseDown(navigation::kLeftButton, navigation::kAlt, x, y); }

  /// `count` moves, each by (dx, dy) from where the pointer was.
  void Drag(int count, int button, int shift, float dx, float dy) {
    for (int i = 0; i < count; ++i)
      view->Form_MouseMove(button, shift, view->Mouse.LastX + dx, view->Mouse.LastY + dy);
  }

  /// The numbers, from 1, of those of `count` equal moves that repaint more than once: the throttled steps.
  std::vector<int> StepsAt(int count, int button, int shift, float dx, float dy) {
    std::vector<int> steps;
    for (int i = 1; i <= count; ++i) {
      counts.repaints = 0;
      Drag(1, button, shift, dx, dy);
      if (counts.repaints > 1) steps.push_back(i);
    }
    return steps;
  }
};

TEST_F(NavigationMouse, OneMoveOfEveryDrag) {
  // From (100, 100); the throttled drags do nothing in a first move outside walk mode.
  using Case = std::tuple<int, int, bool, float, float, const char*>;
  const Case rows[] = {
      Case(1, 0, false, 107, 100, "yaw -1"), Case(1, 0, false, 100, 99, "pitch 89"),
      Case(1, 0, false, 90, 110, "yaw 1 pitch 91"), Case(1, 0, false, 100, 100, ""),
      // One degree per pixel.
      Case(1, 1, false, 60, 100, "yaw 40"), Case(1, 1, true, 100, 130, "pitch 120"),
      Case(1, 0, true, 107, 85, "yaw -7 pitch 75"),
      // 2.5 to the even 2, 87.5 to the even 88.
      Case(1, 1, false, 97.5F, 100, "yaw 2"), Case(1, 1, false, 100, 97.5F, "pitch 88"),
      // The camera: a heading of one degree and a look height of one per pixel.
      Case(1, 2, false, 60, 100, "heading 40"), Case(1, 2, true, 107, 100, "heading -7"),
      Case(1, 2, false, 100, 130, "look -30"), Case(1, 2, false, 90, 93, "heading 10 look 7"),
      // Alt steps at once in walk mode, two units.
      Case(1, 4, true, 100, 90, "z 3"), Case(1, 4, true, 100, 110, "z 7"), Case(1, 4, false, 100, 90, ""),
      // Anything else turns nothing.
      Case(0, 0, false, 60, 60, ""), Case(3, 0, false, 60, 60, ""), Case(2, 0, true, 60, 60, ""),
      Case(1, 3, false, 60, 60, ""), Case(1, 5, true, 60, 60, ""), Case(1, 6, true, 60, 60, "")};
  int row = 0;
  for (const auto& [button, shift, walk, x, y, changes] : rows) {
    Restart();
    view->WalkMode = walk;
    Press(100, 100);
    view->Form_MouseMove(button, shift, x, y);
    EXPECT_EQ(Changes(), changes) << "row " << row++;
    const bool zooms = button == 1 && shift == 4 && *changes != '\0';
    EXPECT_EQ(counts.repaints, zooms ? 2 : 1);
    EXPECT_FALSE(view->Mouse.InMouseMove);
  }
}

TEST_F(NavigationMouse, DragsGoOnFromTheOtherEndOrClamp) {
  // One move. At -180 a step to the right finds no edge and clamps; a drag of 800 is out of range even after
  // its one full turn.
  const struct {
    int shift;
    float dx, dy;
    int from, to;
  } rows[] = {{0, -1, 0, 180, -179}, {0, -1, 0, 179, 180},  {0, 1, 0, -179, 180},   {0, 1, 0, -178, -179},
              {0, 1, 0, -180, -180}, {0, 0, 1, 270, -89},   {0, 0, 1, 269, 270},    {0, 0, -1, -90, 269},
              {0, 0, -1, -89, -90},  {1, -30, 0, 150, 180}, {1, -30, 0, 151, -179}, {1, 30, 0, -150, -180},
              {1, 30, 0, -151, 179}, {1, 0, 30, 240, 270},  {1, 0, 30, 241, -89},   {1, 0, -30, -60, -90},
              {1, 0, -30, -61, 269}, {1, -800, 0, 0, 180},  {1, 800, 0, 0, -180},   {1, 0, 800, 0, 270},
              {1, 0, -800, 0, -90}};
  for (const auto& [shift, dx, dy, from, to] : rows) {
    navigation::ScrollBar& bar = dx != 0.0F ? view->ScrollYaw : view->ScrollPitch;
    bar.SetValue(from);
    Drag(1, navigation::kLeftButton, shift, dx, dy);
    EXPECT_EQ(bar.Value(), to) << "shift " << shift << " from " << from;
  }
}

TEST_F(NavigationMouse, DirectionsAreRelativeToTheRoundedPositionAndDeltasToTheExact) {
  Press(10.5F, 20.0F);  // 10.5 rounds to the even 10
  EXPECT_EQ(view->Mouse.LastXi, 10);
  // Right of 10, though the pointer went left by 0.25: the step is to the right.
  view->Form_MouseMove(navigation::kLeftButton, 0, 10.25F, 20.0F);
  EXPECT_EQ(Changes(), "yaw -1");
  EXPECT_EQ(view->Mouse.DeltaX, 0.25F);
  EXPECT_EQ(view->Mouse.LastX, 10.25F);
  EXPECT_EQ(view->Mouse.LastXi, 10);
  view->Form_MouseMove(0, 0, 11.5F, -0.5F);
  EXPECT_EQ(view->Mouse.LastXi, 12);
  EXPECT_EQ(view->Mouse.LastYi, 0);
}

TEST_F(NavigationMouse, PanStepsOnEveryFourthMoveWhateverCameBefore) {
  EXPECT_EQ(StepsAt(12, navigation::kMiddleButton, 0, -1, 0), (std::vector<int>{4, 8, 12}));
  EXPECT_EQ(Changes(), "x -3");
  EXPECT_EQ(counts.dummyFocus, 3);

  Restart();
  Drag(3, 0, 0, 1, 0);  // moves without a button count too
  Drag(1, navigation::kMiddleButton, navigation::kShift + navigation::kAlt, 5, -5);
  EXPECT_EQ(Changes(), "x 1 y 1");
  Drag(4, 0, 0, 1, 0);  // the fourth has no button and starts the count again
  Drag(3, navigation::kMiddleButton, 0, 0, 1);
  EXPECT_EQ(Changes(), "x 1 y 1");
  Drag(1, navigation::kMiddleButton, 0, 0, 1);
  EXPECT_EQ(Changes(), "x 1");
}

TEST_F(NavigationMouse, AltZoomsOnEveryFourthMoveAndAtOnceInWalkMode) {
  EXPECT_EQ(StepsAt(9, navigation::kLeftButton, navigation::kAlt, 0, -1), (std::vector<int>{4, 8}));
  EXPECT_EQ(Changes(), "z 1");  // twice two units
  Restart();
  view->WalkMode = true;
  EXPECT_EQ(StepsAt(3, navigation::kLeftButton, navigation::kAlt, 0, 1), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(Changes(), "z 11");
}

TEST_F(NavigationMouse, CtrlAltSlidesOnEveryNinthMoveAndOnEveryFourthInWalkMode) {
  // The count before the test is 1, 3, 5 ... 15, 17; in walk mode 4, 9, 14, 19.
  EXPECT_EQ(StepsAt(18, navigation::kLeftButton, navigation::kCtrl + navigation::kAlt, 1, 0),
            (std::vector<int>{9, 18}));
  EXPECT_EQ(Changes(), "x 2");
  Drag(8, navigation::kLeftButton, navigation::kCtrl + navigation::kAlt, 0, 1);
  Drag(5, 0, 0, 0, 1);  // moves without the buttons do not count
  EXPECT_EQ(Changes(), "x 2");
  Drag(1, navigation::kLeftButton, navigation::kCtrl + navigation::kAlt, -1, 1);
  EXPECT_EQ(Changes(), "x 1 y -1");
  Restart();
  view->WalkMode = true;
  EXPECT_EQ(StepsAt(8, navigation::kLeftButton, navigation::kCtrl + navigation::kAlt, 0, -1),
            (std::vector<int>{4, 8}));
  EXPECT_EQ(Changes(), "y 2");
}

TEST_F(NavigationMouse, OnlyAPlainRightPressOpensTheMenuAndRecordsNothing) {
  Press(1, 2);
  view->Form_MouseDown(navigation::kRightButton, 0, 30.5F, 40.25F);
  EXPECT_EQ(counts.menus, 1);
  EXPECT_EQ(counts.menuX, 30.5F);
  EXPECT_EQ(counts.menuY, 40.25F);
  EXPECT_EQ(view->Mouse.LastX, 1.0F);
  view->Form_MouseDown(navigation::kRightButton, navigation::kShift, 3, 4);
  EXPECT_EQ(counts.menus, 1);
  EXPECT_EQ(view->Mouse.LastX, 3.0F);
}

TEST_F(NavigationMouse, AnOverflowEscapesAndEndsTheMove) {
  view->Camera.CamLook = std::numeric_limits<std::int16_t>::max();
  EXPECT_THROW(Drag(1, navigation::kLeftButton, navigation::kCtrl, 0, -1), model::Overflow);
  EXPECT_FALSE(view->Mouse.InMouseMove);
  EXPECT_EQ(counts.repaints, 0);
  EXPECT_THROW(Drag(1, navigation::kLeftButton, navigation::kShift, -40000, 0), model::Overflow);
  EXPECT_THROW(view->Form_MouseDown(navigation::kLeftButton, 0, 3e9F, 0), model::Overflow);
}

}  // namespace
}  // namespace shell
