#include "tests/shell/setup_and_list_fixture.h"

namespace shell {
namespace {

TEST_F(SetupAndList, EachSettingReachesItsOwnWiresAtApply) {
  ShowSample("AAAc");
  // The die is 0.28 high, in a package whose scale is 1.
  EXPECT_EQ(Loops(), "base 0.28 0.28 stack 0.28 0.28 stitch 0.28 0.28");
  QMainWindow& setup = OpenSetup();
  const struct {
    const char *frame, *value, *loops;
  } steps[] = {
      {"Base Loop Height", "0.5", "base 0.5 0.28 stack 0.28 0.28 stitch 0.28 0.28"},
      {"Base Loop Extension", "0,4", "base 0.5 0.4 stack 0.28 0.28 stitch 0.28 0.28"},
      {"Stacked Loop Extension", "0.6", "base 0.5 0.4 stack 0.28 0.6 stitch 0.28 0.28"},
      // Stitches take the stacked wires' height.
      {"Stack Loop Height", "0.7", "base 0.5 0.4 stack 0.7 0.6 stitch 0.7 0.28"},
      {"Stitch Loop Extension", "0.3", "base 0.5 0.4 stack 0.7 0.6 stitch 0.7 0.3"},
  };
  for (const auto& [frame, value, loops] : steps) {
    const render::Picture before = Form().FramePicture();
    Custom(setup, frame, value);
    EXPECT_EQ(Form().FramePicture().Rgb, before.Rgb) << "only Apply rebuilds";
    Press(setup, "Apply");
    EXPECT_EQ(Loops(), loops);
  }
  Press(setup, "Reset");
  EXPECT_EQ(Loops(), "base 0.28 0.28 stack 0.28 0.28 stitch 0.28 0.28");
}

TEST_F(SetupAndList, EdgeOfBaseDieRunsEachStackedWireToTheEdge) {
  ShowSample("AAAc");
  QMainWindow& setup = OpenSetup();
  Click(Option(setup, "Stacked Loop Extension", "Edge of Base Die"));
  Press(setup, "Apply");
  const model::Package& package = Form().Package();
  int stacked = 0;
  for (const model::WireStrip& wire : Wires()) {
    if (wire[0].Y <= 0.3F || stacked == 16) continue;  // it starts on the base die, or is a stitch
    ++stacked;
    // The die's edges lie at x = +-2.2 and y = +-1.8.
    const double toSide = std::fabs(std::fabs(double(wire[5].X)) - double(package.CompW) / 2);
    const double toEnd = std::fabs(std::fabs(double(wire[5].Z)) - double(package.CompL) / 2);
    EXPECT_LT(std::min(toSide, toEnd), 0.001);
  }
  EXPECT_EQ(stacked, 16) << "24 pads on the stacked die, eight of them with stitches";
}

TEST_F(SetupAndList, InAPackageInMilsTheDieHeightIsAHundredthOfTheLoopsOneMeans) {
  ShowSample("stacked-ram");
  // 10 mil of die height are 0.1 scene units; the default takes the number as it is: 0.1 mil.
  EXPECT_EQ(Loops(), "base 0.001 0.001 stack 0.001 0.001 stitch 0.001 0.001");
  QMainWindow& setup = OpenSetup();
  Custom(setup, "Base Loop Height", "10");
  Custom(setup, "Stitch Loop Extension", "12.5");
  Press(setup, "OK");
  EXPECT_FALSE(setup.isVisible());
  EXPECT_EQ(Loops(), "base 0.1 0.001 stack 0.001 0.001 stitch 0.001 0.125");

  const render::Picture before = Form().FramePicture();
  OpenSetup();  // filled from the settings: 10 is the die height in file units, 0.1 is not
  EXPECT_TRUE(Option(setup, "Base Loop Height", "Default to Die Height")->isChecked());
  EXPECT_TRUE(Option(setup, "Base Loop Extension", "Custom")->isChecked());
  EXPECT_EQ(Value(setup, "Base Loop Extension")->text(), "0.1");
  EXPECT_TRUE(Option(setup, "Wire Diameter Mils", "1.0")->hasFocus()) << "the first frame's selected option";
  // Being activated, the window takes its controls over; the view follows at the next Apply.
  EXPECT_EQ(Form().Settings().BaseLoopHeight, 0.1F);
  Press(setup, "Cancel");
  EXPECT_EQ(Form().FramePicture().Rgb, before.Rgb);
}

TEST_F(SetupAndList, SaveAndLoadGoThroughTheDialogs) {
  ShowSample("AAAc");
  QMainWindow& setup = OpenSetup();
  for (const char* frame : {"Base Loop Height", "Base Loop Extension", "Stack Loop Height"})
    Custom(setup, frame, "0.5");
  Click(Option(setup, "Stacked Loop Extension", "Edge of Base Die"));
  answer = folder / "\xC3\xA4.zu";
  Press(setup, "Save");
  EXPECT_EQ(asked.PackagePath, Form().Package().PackagePath);
  Press(setup, "Reset");
  asking = [&] { EXPECT_EQ(WireCount(), 96U); };
  Press(setup, "Load");
  // The base extension is saved under another key than the one that is read.
  EXPECT_EQ(Loops().substr(0, 13), "base 0.5 0.28");
  EXPECT_TRUE(Option(setup, "Stacked Loop Extension", "Edge of Base Die")->isChecked());
  EXPECT_EQ(Form().Package().PackagePath, folder / "AAAc.yax") << "as the picture will be at the next load";
}

TEST_F(SetupAndList, ALoadResetsTheShownSetupWindowAndClosesTheList) {
  ShowSample("AAAc");
  QMainWindow& setup = OpenSetup();
  Custom(setup, "Base Loop Height", "0.5");
  Click(Option(setup, "Material", "Cu"));
  Press(setup, "Apply");
  const QPointer<QListView> list(&OpenList());
  EXPECT_EQ(WireCount(), 0U) << "shown with nothing selected";
  bool openAtTheDialog = true;
  asking = [&] { openAtTheDialog = list && list->isVisible(); };
  Choose("DoLoadYAX");
  EXPECT_FALSE(openAtTheDialog);
  EXPECT_EQ(asked.DialogTitle, "Load YAX File");
  EXPECT_EQ(asked.PackagePath, YAX_SAMPLES "/AAAc.yax") << "where the dialog starts";
  EXPECT_EQ(Loops().substr(0, 13), "base 0.5 0.28") << "cancelled: the old package, with all its wires";

  answer = YAX_SAMPLES "/bga332.yax";
  Choose("DoLoadYAX");
  EXPECT_TRUE(setup.isVisible());
  EXPECT_TRUE(Option(setup, "Material", "Au")->isChecked());
  EXPECT_TRUE(Option(setup, "Base Loop Height", "Default to Die Height")->isChecked());
  EXPECT_EQ(Value(setup, "Base Loop Height")->text(), "0.3048");
  EXPECT_FALSE(Frame(setup, "Stack Loop Height")->isEnabled());
  EXPECT_FALSE(Frame(setup, "Stacked Loop Extension")->isEnabled());
  EXPECT_TRUE(Frame(setup, "Stitch Loop Extension")->isEnabled());
  EXPECT_EQ(Loops(), "base 0.3048 0.3048 stack 0 shapes stitch 0 shapes");
}

TEST_F(SetupAndList, NewWindowsOpenWithinTheScreenAndApart) {
  ShowSample("AAAc");
  const QRect list = OpenList().window()->frameGeometry();
  const QRect setup = OpenSetup().frameGeometry();
  EXPECT_TRUE(window->screen()->geometry().contains(list));
  EXPECT_TRUE(window->screen()->geometry().contains(setup));
  EXPECT_FALSE(list.intersects(window->frameGeometry()) || setup.intersects(window->frameGeometry()) ||
               list.intersects(setup));
}

}  // namespace
}  // namespace shell
