#include "setup/setup_form.h"

#include "tests/setup/setup_fixture.h"

namespace setup {
namespace {

TEST_F(SetupFormTest, ResetPutsEveryWireAtTheDieHeightOfTheModel) {
  // The boxes show file units, UnitScale * CompZ; the settings take CompZ as it is.
  for (const auto& [unitScale, boxes] : {std::pair(1.0F, "0.25"), {100.0F, "25"}}) {
    package.UnitScale = unitScale;
    form.RunCommand3();
    EXPECT_EQ(settings.Material, "Au");
    EXPECT_EQ(settings.WireDiameter, 1.0F);
    EXPECT_EQ(settings.Frequency, 1e6F);
    EXPECT_EQ(controls.WDc.Text + controls.FQc.Text, "11");
    for (const LoopFrame& frame : kLoopFrames) {
      EXPECT_EQ(settings.*frame.Setting, 0.25F) << frame.Caption;
      EXPECT_EQ(frame.FieldOf(controls).Text, boxes) << frame.Caption;
      EXPECT_FALSE(frame.FieldOf(controls).Enabled) << frame.Caption;
      EXPECT_TRUE(controls.LH[frame.First]);
    }
  }
  EXPECT_EQ(rebuilds, 2);
}

TEST_F(SetupFormTest, EachOptionGivesItsSettingAtOnceAndWithoutARebuild) {
  form.RunCommand3();
  rebuilds = 0;
  controls.WDc.Text = controls.FQc.Text = "2,5";
  for (const LoopFrame& frame : kLoopFrames) frame.FieldOf(controls).Text = "2,5";
  const auto tryEach = [this](auto click, auto& options, auto& setting, const auto& values) {
    std::size_t index = 0;
    for (const auto& value : values) {
      (form.*click)(index);
      EXPECT_EQ(setting, value);
      EXPECT_EQ(Selected(options), int(index++));
    }
  };
  tryEach(&SetupForm::M_Click, controls.M, settings.Material, std::vector<std::string>{"Au", "Al", "Cu"});
  tryEach(&SetupForm::WD_Click, controls.WD, settings.WireDiameter,
          std::vector{0.5F, 0.7F, 0.8F, 1.0F, 1.25F, 1.5F, 2.5F});
  tryEach(&SetupForm::FQ_Click, controls.FQ, settings.Frequency,
          std::vector{2500.0F, 2500000.0F, 2500000000.0F, 2.5F});
  for (const LoopFrame& frame : kLoopFrames) {
    for (std::size_t i = frame.First; i <= frame.Custom; ++i) {
      form.LH_Click(i);
      EXPECT_EQ(settings.*frame.Setting, i == frame.First ? 0.25F : i == frame.Custom ? 2.5F : -1.0F) << i;
      EXPECT_EQ(frame.FieldOf(controls).Enabled, i == frame.Custom) << i;
      EXPECT_EQ(Selected(controls.LH, frame.First, frame.Custom), static_cast<int>(i));
    }
  }
  EXPECT_EQ(rebuilds, 0);
  // Clicked values stay when the window is cancelled.
  form.Cmd_Click(1);
  EXPECT_EQ(settings.Material, "Cu");
  EXPECT_EQ(settings.StitchExtension, 2.5F);
}

TEST_F(SetupFormTest, ANewFormIsFilledFromTheSettings) {
  settings = {"Ag", 0.9F, 4.7e6F, 25.0F, 30.0F, 0.0F, -1.0F, -2.5F};
  form.Load();
  EXPECT_EQ(Selected(controls.M), -1) << "an unknown material";
  EXPECT_EQ(Selected(controls.WD), 6) << "no listed diameter";
  EXPECT_EQ(controls.WDc.Text, "0.9");
  EXPECT_EQ(Selected(controls.FQ), 1);
  EXPECT_EQ(controls.FQc.Text, "4.7");
  // 25 is UnitScale * CompZ, so "Default"; 0 is unset, so "Default"; the others are "Custom".
  const std::pair<int, const char*> loops[] = {{0, "25"}, {2, "0"}, {5, "-1"}, {8, "30"}, {10, "-2.5"}};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(SelectedLoop(i), loops[i].first);
    EXPECT_EQ(kLoopFrames[i].FieldOf(controls).Text, loops[i].second);
  }
  EXPECT_EQ(settings.BaseLoopHeight, 25.0F) << "filling reads the settings only";
  form.Form_Activate();
  EXPECT_EQ(settings.Material, "Ag");
  EXPECT_EQ(settings.BaseLoopHeight, 0.25F) << "being activated, the window takes the default over";
}

TEST_F(SetupFormTest, TheFrequencyShowsInTheUnitOfItsSize) {
  using Case = std::tuple<float, int, const char*>;
  for (const auto& [hertz, unit, text] :
       {Case(0.0F, 3, "0"), Case(999.0F, 3, "999"), Case(1000.0F, 0, "1"), Case(999000.0F, 0, "999"),
        Case(1e6F, 1, "1"), Case(2.5e8F, 1, "250"), Case(1e9F, 2, "1"), Case(-5e6F, 3, "-5000000"),
        Case(4.5e10F, 2, "45")}) {
    settings.Frequency = hertz;
    form.Unload();
    form.Load();
    EXPECT_EQ(Selected(controls.FQ), unit) << hertz;
    EXPECT_EQ(controls.FQc.Text, text);
  }
}

TEST_F(SetupFormTest, AnUnloadedFormIgnoresLateEvents) {
  form.RunCommand3();
  form.Cmd_Click(1);
  rebuilds = changes = 0;
  const std::string before = settings.Material;
  form.M_Click(2);
  form.LH_Click(1);
  form.LEc_LostFocus(0);
  form.LEc_KeyUp(0, 27);
  form.Form_Activate();
  form.Cmd_Click(0);
  form.Cmd_Click(1);
  EXPECT_EQ(settings.Material, before);
  EXPECT_EQ(rebuilds + changes, 0);
  EXPECT_EQ(unloads, 1);
}

TEST_F(SetupFormTest, ButtonsTrapFaultsAndEverythingElseLetsThemPass) {
  form.RunCommand3();
  faultOnRebuild = true;
  for (std::size_t button = 0; button < 7; ++button) EXPECT_NO_THROW(form.Cmd_Click(button)) << button;
  faultOnRebuild = false;
  form.Load();
  // 1e35 GHz is beyond a single.
  controls.FQc.Text = "1e35";
  EXPECT_THROW(form.FQ_Click(2), model::Overflow);
  EXPECT_THROW(form.FQc_LostFocus(), model::Overflow);
  EXPECT_THROW(form.Form_Activate(), model::Overflow);
  rebuilds = 0;
  EXPECT_NO_THROW(form.Cmd_Click(4));
  EXPECT_EQ(rebuilds, 0);
  EXPECT_TRUE(form.Alive()) << "OK ends where the fault arose";
  form.RunCommand3();
  EXPECT_EQ(settings.Frequency, 1e6F) << "Reset mends it";
}

TEST_F(SetupFormTest, FieldsTakeTheirFallbackAndFormat) {
  form.RunCommand3();
  struct Box {
    Field& field;
    std::function<void()> got, lost;
    std::vector<std::pair<const char*, const char*>> texts;
  };
  // "1,25" becomes 1.3 with one decimal: halves round away from zero.
  std::vector<Box> boxes = {
      {controls.WDc,
       [&] { form.WDc_GotFocus(); },
       [&] { form.WDc_LostFocus(); },
       {{"0", "1.0"}, {"", "1.0"}, {"abc", "1.0"}, {"0.0", "1.0"}, {"1,25 mil", "1.3"}, {"-2", "-2.0"}}},
      {controls.FQc,
       [&] { form.FQc_GotFocus(); },
       [&] { form.FQc_LostFocus(); },
       {{"0", "1"}, {"", "1"}, {"nan", "1"}, {"1,25 mil", "1.25"}, {"-2", "-2"}}}};
  for (const LoopFrame& frame : kLoopFrames) {
    const std::size_t i = frame.Index;
    form.LH_Click(frame.Custom);
    boxes.push_back({frame.FieldOf(controls),
                     [=, this] { frame.Height ? form.LHc_GotFocus(i) : form.LEc_GotFocus(i); },
                     [=, this] { frame.Height ? form.LHc_LostFocus(i) : form.LEc_LostFocus(i); },
                     {{"", "1.000"},
                      {"x", "1.000"},
                      {"-3", "-3.000"},
                      {"1e3", "1000.000"},
                      {"0.0001", "0.000"},
                      {"2.0005", "2.001"}}});
  }
  for (const auto& [field, got, lost, texts] : boxes) {
    for (const auto& [typed, shown] : texts) {
      for (const auto& handler : {lost, got}) {
        field.Text = typed;
        handler();
        EXPECT_EQ(field.Text, shown) << typed;
      }
      EXPECT_EQ(controls.TD, shown);
    }
  }
  // Those that are left are taken over.
  EXPECT_EQ(settings.Frequency, -2e6F);
  for (const LoopFrame& frame : kLoopFrames) EXPECT_EQ(settings.*frame.Setting, 2.001F) << frame.Caption;
}

TEST_F(SetupFormTest, EnterGoesToTheFieldsOptionAndSelectsNothing) {
  using Options = std::vector<std::pair<OptionArray, std::size_t>>;
  Options focused;
  form.Actions.FocusOption = [&](auto... option) { focused.emplace_back(option...); };
  form.RunCommand3();
  form.FQ_Click(2);
  for (const int key : {13, 10, 9}) {
    form.WDc_KeyUp(key);
    form.FQc_KeyUp(key);
    for (const LoopFrame& frame : kLoopFrames)
      frame.Height ? form.LHc_KeyUp(frame.Index, key) : form.LEc_KeyUp(frame.Index, key);
  }
  constexpr auto kLoops = OptionArray::LH;
  const Options expected = {{OptionArray::WD, 6}, {OptionArray::FQ, 2}, {kLoops, 1}, {kLoops, 3},
                            {kLoops, 6},          {kLoops, 8},          {kLoops, 10}};
  EXPECT_EQ(focused, expected);
  EXPECT_EQ(Selected(controls.WD), 3);
  EXPECT_EQ(SelectedLoop(0), 0);
}

TEST_F(SetupFormTest, EscapeRestoresAnExtensionAndNothingElse) {
  form.RunCommand3();
  form.LH_Click(10);
  controls.LEc[2].Text = "12";
  form.LEc_GotFocus(2);
  controls.LEc[2].Text = "99";
  form.LEc_KeyUp(2, 27);
  EXPECT_EQ(controls.LEc[2].Text, "12.000");
  EXPECT_EQ(settings.StitchExtension, 12.0F);
  controls.LHc[0].Text = "99";
  form.LHc_KeyUp(0, 27);
  EXPECT_EQ(controls.LHc[0].Text, "99");
}

}  // namespace
}  // namespace setup
