#include "shell/navigation/scroll_bar.h"

#include <gtest/gtest.h>

#include <string>

namespace shell {
namespace {

TEST(ScrollBar, ClampsAndReportsChangesOnly) {
  navigation::ScrollBar bar(-90, 270);
  std::string calls;
  bar.Show = [&](std::int16_t value) { calls += "show " + std::to_string(value) + ";"; };
  bar.Change = [&] { calls += "change " + std::to_string(bar.Value()) + ";"; };
  bar.Scroll = [&] { calls += "scroll " + std::to_string(bar.Value()) + ";"; };
  const auto set = [&](int value) { return calls.clear(), bar.SetValue(value), calls; };
  const auto drag = [&](int value) { return calls.clear(), bar.Drag(value), calls; };

  EXPECT_EQ(set(0), "");
  EXPECT_EQ(set(270), "show 270;change 270;");
  EXPECT_EQ(set(271), "");  // clamped to the value it has
  EXPECT_EQ(set(-91), "show -90;change -90;");
  EXPECT_EQ(set(100000), "show 270;change 270;");  // clamped before it is narrowed to 16 bits
  EXPECT_EQ(drag(12), "show 12;scroll 12;");
  EXPECT_EQ(drag(12), "");
}

}  // namespace
}  // namespace shell
