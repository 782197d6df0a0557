#include "setup/setup_form.h"

#include "tests/setup/setup_fixture.h"

namespace setup {
namespace {

TEST_F(SetupFormTest, ResetPutsEveryWireAtTheDieHeightOfTheModel) {
  struct Case {
    float unitScale, compZ;
    const char* boxes;
  };
  // The boxes show file units, UnitScale * CompZ; the settings take CompZ as it is.
  for (const auto& [unitScale, compZ, boxes] : {Case{1.0F, 0.25F, "0.25"}, Case{100.0F, 0.25F, "25"}}) {
    package.UnitScale = unitScale;
    package.CompZ = compZ;
    form.RunCommand3();
    EXPECT_EQ(settings.Material, "Au");
    EXPECT_EQ(settings.WireDiameter, 1.0F);
    EXPECT_EQ(settings.Frequency, 1e6F);
    EXPECT_EQ(controls.WDc.Text, "1");
    EXPECT_EQ(controls.FQc.Text, "1");
    for (const LoopFrame& frame : kLoopFrames) {
      EXPECT_EQ(settings.*frame.Setting, compZ) << frame.Caption;
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
  for (Field* field : {&controls.WDc, &controls.FQc, &controls.LHc[0], &controls.LHc[1], &controls.LEc[0],
                       &controls.LEc[1], &controls.LEc[2]})
    field->Text = "2,5";
  const char* const materials[] = {"Au", "Al", "Cu"};
  for (std::size_t i = 0; i < 3; ++i) {
    form.M_Click(i);
    EXPECT_EQ(settings.Material, materials[i]);
    EXPECT_EQ(Selected(controls.M), static_cast<int>(i));
  }
  const float diameters[] = {0.5F, 0.7F, 0.8F, 1.0F, 1.25F, 1.5F, 2.5F};
  for (std::size_t i = 0; i < 7; ++i) {
    form.WD_Click(i);
    EXPECT_EQ(settings.WireDiameter, diameters[i]);
    EXPECT_EQ(Selected(controls.WD), static_cast<int>(i));
  }
  const float frequencies[] = {2500.0F, 2500000.0F, 2500000000.0F, 2.5F};
  for (std::size_t i = 0; i < 4; ++i) {
    form.FQ_Click(i);
    EXPECT_EQ(settings.Frequency, frequencies[i]);
    EXPECT_EQ(Selected(controls.FQ), static_cast<int>(i));
  }
  for (std::size_t i = 0; i < 11; ++i) {
    form.LH_Click(i);
    for (const LoopFrame& frame : kLoopFrames) {
      if (i < frame.First || i > frame.Custom) continue;
      const float value = i == frame.First ? 0.25F : i == frame.Custom ? 2.5F : -1.0F;
      EXPECT_EQ(settings.*frame.Setting, value) << i;
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
  settings = {"AL", 0.7F, 4.7e6F, 25.0F, 30.0F, 0.0F, -1.0F, -2.5F};
  form.Load();
  EXPECT_EQ(Selected(controls.M), 1);
  EXPECT_EQ(Selected(controls.WD), 1);
  EXPECT_EQ(controls.WDc.Text, "0.7");
  EXPECT_EQ(Selected(controls.FQ), 1);
  EXPECT_EQ(controls.FQc.Text, "4.7");
  // 25 is UnitScale * CompZ, so "Default"; 0 is unset, so "Default"; the others are "Custom".
  const struct {
    int option;
    const char* text;
  } loops[] = {{0, "25"}, {2, "0"}, {5, "-1"}, {8, "30"}, {10, "-2.5"}};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(SelectedLoop(i), loops[i].option);
    EXPECT_EQ(kLoopFrames[i].FieldOf(controls).Text, loops[i].text);
  }
  EXPECT_EQ(settings.BaseLoopHeight, 25.0F) << "filling reads the settings only";
  form.Form_Activate();
  EXPECT_EQ(settings.BaseLoopHeight, 0.25F) << "being activated, the window takes the default over";
}

TEST_F(SetupFormTest, TheFrequencyShowsInTheUnitOfItsSize) {
  const struct {
    float hertz;
    int unit;
    const char* text;
  } cases[] = {{0.0F, 3, "0"},        {999.0F, 3, "999"},     {1000.0F, 0, "1"},
               {999000.0F, 0, "999"}, {1e6F, 1, "1"},         {2.5e8F, 1, "250"},
               {1e9F, 2, "1"},        {-5e6F, 3, "-5000000"}, {4.5e10F, 2, "45"}};
  for (const auto& [hertz, unit, text] : cases) {
    settings.Frequency = hertz;
    form.Unload();
    form.Load();
    EXPECT_EQ(Selected(controls.FQ), unit) << hertz;
    EXPECT_EQ(controls.FQc.Text, text);
  }
}

TEST_F(SetupFormTest, AnUnlistedDiameterIsCustomAndAnUnknownMaterialSelectsNone) {
  settings.Material = "Ag";
  settings.WireDiameter = 0.9F;
  form.Load();
  EXPECT_EQ(Selected(controls.M), -1);
  EXPECT_EQ(Selected(controls.WD), 6);
  EXPECT_EQ(controls.WDc.Text, "0.9");
  form.Form_Activate();
  EXPECT_EQ(settings.Material, "Ag");
}

TEST_F(SetupFormTest, ShowingALivingFormKeepsItsControls) {
  form.RunCommand3();
  controls.LHc[0].Text = "77";
  form.Load();
  EXPECT_EQ(controls.LHc[0].Text, "77");
  form.Cmd_Click(4);
  EXPECT_FALSE(form.Alive());
  EXPECT_EQ(unloads, 1);
  form.Load();
  EXPECT_EQ(controls.LHc[0].Text, "0.25") << "a form made anew shows the setting";
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
  struct Family {
    void (SetupForm::*got)();
    void (SetupForm::*lost)();
    Field SetupControls::*field;
    const char *zero, *value, *negative;
  };
  form.RunCommand3();
  // "1,25" becomes 1.3 with one decimal: halves round away from zero.
  const Family families[] = {
      {&SetupForm::WDc_GotFocus, &SetupForm::WDc_LostFocus, &SetupControls::WDc, "1.0", "1.3", "-2.0"},
      {&SetupForm::FQc_GotFocus, &SetupForm::FQc_LostFocus, &SetupControls::FQc, "1", "1.25", "-2"},
  };
  for (const auto& [got, lost, field, zero, value, negative] : families) {
    const std::pair<const char*, const char*> texts[] = {{"0", zero},     {"", zero},    {"abc", zero},
                                                         {"0.0", zero},   {"nan", zero}, {"1,25 mil", value},
                                                         {"-2", negative}};
    for (const auto& [typed, shown] : texts) {
      (controls.*field).Text = typed;
      (form.*lost)();
      EXPECT_EQ((controls.*field).Text, shown) << typed;
      (controls.*field).Text = typed;
      (form.*got)();
      EXPECT_EQ((controls.*field).Text, shown) << typed;
      EXPECT_EQ(controls.TD, shown);
    }
  }
  EXPECT_EQ(settings.Frequency, -2e6F) << "a field that is left is taken over";
}

TEST_F(SetupFormTest, LoopFieldsTakeTheirFallbackAndFormat) {
  form.RunCommand3();
  const struct {
    const char *typed, *shown;
    float value;
  } cases[] = {{"0", "1.000", 1.0F},
               {"", "1.000", 1.0F},
               {"x", "1.000", 1.0F},
               {"2.0005", "2.001", 2.001F},
               {"-3", "-3.000", -3.0F},
               {"1e3", "1000.000", 1000.0F},
               // Not zero when it is tested, yet shown with three decimals; the value follows the text.
               {"0.0001", "0.000", 0.0F}};
  for (const LoopFrame& frame : kLoopFrames) {
    form.LH_Click(frame.Custom);
    for (const auto& [typed, shown, value] : cases) {
      frame.FieldOf(controls).Text = typed;
      frame.Height ? form.LHc_GotFocus(frame.Index) : form.LEc_GotFocus(frame.Index);
      EXPECT_EQ(frame.FieldOf(controls).Text, shown);
      EXPECT_EQ(controls.TD, shown);
      frame.FieldOf(controls).Text = typed;
      frame.Height ? form.LHc_LostFocus(frame.Index) : form.LEc_LostFocus(frame.Index);
      EXPECT_EQ(frame.FieldOf(controls).Text, shown);
      EXPECT_EQ(settings.*frame.Setting, value) << frame.Caption << typed;
    }
  }
}

TEST_F(SetupFormTest, EnterGoesToTheFieldsOptionAndSelectsNothing) {
  std::vector<std::pair<OptionArray, std::size_t>> focused;
  form.upward.focusOption = [&](OptionArray options, std::size_t index) {
    focused.emplace_back(options, index);
  };
  form.RunCommand3();
  form.FQ_Click(2);
  for (const int key : {13, 10, 9}) {
    form.WDc_KeyUp(key);
    form.FQc_KeyUp(key);
    for (std::size_t i = 0; i < 2; ++i) form.LHc_KeyUp(i, key);
    for (std::size_t i = 0; i < 3; ++i) form.LEc_KeyUp(i, key);
  }
  const std::vector<std::pair<OptionArray, std::size_t>> expected = {
      {OptionArray::WD, 6}, {OptionArray::FQ, 2}, {OptionArray::LH, 1}, {OptionArray::LH, 8},
      {OptionArray::LH, 3}, {OptionArray::LH, 6}, {OptionArray::LH, 10}};
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
  form.LHc_GotFocus(0);
  controls.LHc[0].Text = "99";
  form.LHc_KeyUp(0, 27);
  EXPECT_EQ(controls.LHc[0].Text, "99");
}

}  // namespace
}  // namespace setup
