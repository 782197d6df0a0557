#include <limits>

#include "tests/shell/navigation/navigation_fixture.h"

namespace shell {
namespace {

using NavigationKeys = NavigationTest;

/// What a key changes, by modifier state.
struct Row {
  int keyCode;
  const char *none, *withShift, *ctrl, *alt, *ctrlAlt, *other;
};

TEST_F(NavigationKeys, EveryKeyWithEveryModifierState) {
  // From the start state: x 0, y 0, z 5, heading 1.56, look 0, yaw 0, pitch 90.
  const auto always = [](int keyCode, const char* change) {
    return Row{keyCode, change, change, change, change, change, change};
  };
  const auto step = [](int keyCode, const char* one, const char* two) {
    return Row{keyCode, one, two, two, two, two, two};
  };
  // Key code; none, Shift, Ctrl, Alt, Ctrl+Alt; the three other sums.
  const Row rows[] = {
      always(27, "end"),
      always(36, "reload"),
      {37, "yaw 1", "yaw 10", "heading 10", "", "x -1", ""},
      {38, "pitch 89", "pitch 80", "look 10", "z 4", "y 1", ""},
      {39, "yaw -1", "yaw -10", "heading -10", "", "x 1", ""},
      {40, "pitch 91", "pitch 100", "look -10", "z 6", "y -1", ""},
      always(68, "look -10"),
      always(76, "heading 10"),
      always(82, "heading -10"),
      always(85, "look 10"),
      step(107, "z 4", "z 3"),
      step(187, "z 4", "z 3"),
      step(109, "z 6", "z 7"),
      step(189, "z 6", "z 7"),
  };
  for (const auto& [keyCode, none, withShift, ctrl, alt, ctrlAlt, other] : rows) {
    const char* const changes[8] = {none, withShift, ctrl, other, alt, other, ctrlAlt, other};
    EXPECT_TRUE(navigation::Navigation::AnswersTo(keyCode)) << keyCode;
    for (int shift = 0; shift < 8; ++shift) {
      SCOPED_TRACE("key " + std::to_string(keyCode) + " shift " + std::to_string(shift));
      Restart();
      view->Form_KeyDown(keyCode, shift);
      EXPECT_EQ(Changes(), changes[shift]);
      const bool moves = *changes[shift] != '\0' && keyCode != 27 && keyCode != 36;
      EXPECT_EQ(counts.repaints, moves ? 1 : 0);
      EXPECT_EQ(counts.pointer.has_value(), shift == 1);
    }
  }
}

TEST_F(NavigationKeys, ArrowsGoOnFromTheOtherEndOfTheBar) {
  const struct {
    int keyCode, shift, from, to;
  } rows[] = {{navigation::kLeft, 0, 179, 180},
              {navigation::kLeft, 0, 180, -179},
              {navigation::kRight, 0, -179, -180},
              {navigation::kRight, 0, -180, 179},
              {navigation::kLeft, navigation::kShift, 170, 180},
              {navigation::kLeft, navigation::kShift, 171, -179},
              {navigation::kRight, navigation::kShift, -170, -180},
              {navigation::kRight, navigation::kShift, -171, 179},
              {navigation::kUp, 0, -89, -90},
              {navigation::kUp, 0, -90, 269},
              {navigation::kDown, 0, 269, 270},
              {navigation::kDown, 0, 270, -89},
              {navigation::kUp, navigation::kShift, -80, -90},
              {navigation::kUp, navigation::kShift, -81, 269},
              {navigation::kDown, navigation::kShift, 260, 270},
              {navigation::kDown, navigation::kShift, 261, -89}};
  for (const auto& [keyCode, shift, from, to] : rows) {
    navigation::ScrollBar& bar =
        keyCode == navigation::kLeft || keyCode == navigation::kRight ? view->ScrollYaw : view->ScrollPitch;
    bar.SetValue(from);
    view->Form_KeyDown(keyCode, shift);
    EXPECT_EQ(bar.Value(), to) << "key " << keyCode << " shift " << shift << " from " << from;
  }
}

TEST_F(NavigationKeys, FaultsEndAKeySilentlyAndKeepTheChangesSoFar) {
  constexpr std::int16_t most = std::numeric_limits<std::int16_t>::max();
  constexpr std::int16_t least = std::numeric_limits<std::int16_t>::min();
  view->Camera = {.CamX = most, .CamY = least, .CamLook = least};
  view->Form_KeyDown(navigation::kRight, navigation::kCtrl + navigation::kAlt);
  view->Form_KeyDown(navigation::kDown, navigation::kCtrl + navigation::kAlt);
  view->Form_KeyDown(navigation::kD, 0);
  EXPECT_EQ(view->Camera.CamX, most);
  EXPECT_EQ(view->Camera.CamY, least);
  EXPECT_EQ(view->Camera.CamLook, least);
  EXPECT_EQ(counts.repaints, 0);

  // At 45 degrees a double step of 2 is 1.41 each way: x moves by one before z, at its least, overflows.
  view->Camera = {.CamZ = least, .CamYaw = 0.785F};
  view->Form_KeyDown(navigation::kKeypadPlus, navigation::kShift);
  EXPECT_EQ(view->Camera.CamX, 1);
  EXPECT_EQ(view->Camera.CamZ, least);
}

TEST_F(NavigationKeys, KeysAndDummyTrapFaultsOfLoadAndRepaintButButtonsDoNot) {
  view->Actions.Reload = [] { throw model::DivisionByZero("its ends coincide"); };
  EXPECT_NO_THROW(view->Form_KeyDown(navigation::kHome, 0));
  EXPECT_NO_THROW(view->Dummy_Click());
  // A frame makes the target's height as a 16-bit sum, which can overflow though each part fits.
  view->Actions.Repaint = [] { throw model::Overflow(); };
  view->Form_KeyDown(navigation::kU, 0);
  EXPECT_EQ(view->Camera.CamLook, 10);
  EXPECT_THROW(view->cmdUp_Click(), model::Overflow);
}

}  // namespace
}  // namespace shell
