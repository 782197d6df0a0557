#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

#include "setup/estimator_file.h"
#include "tests/temporary_folder.h"
#include "yax/messages.h"
#include "yax/options/camera.h"
#include "yax/options/loops.h"
#include "yax/options/nets.h"
#include "yax/options/option_text.h"
#include "yax/options/picture.h"
#include "yax/options/wires.h"
#include "yax/options/zu_file.h"

namespace yax {
namespace {

using Arguments = std::vector<std::string>;

/// The options that `add` adds, after a command line.
template <class Options>
Options Parsed(void (*add)(CLI::App&, Options&), Arguments arguments) {
  CLI::App command;
  Options options;
  add(command, options);
  std::reverse(arguments.begin(), arguments.end());
  command.parse(arguments);
  return options;
}

/// The message with which `work` is refused; empty when it is not.
template <class Work>
std::string Refusal(Work&& work) {
  try {
    work();
  } catch (const Unusable& unusable) {
    return unusable.what();
  } catch (const CLI::ParseError& error) {
    return error.what();
  }
  return {};
}

TEST(Message, NamesFileLineWhatAndWhatToDo) {
  EXPECT_EQ(MessageText({"a.yax", 12}, "odd", "mend it"), "a.yax:12: odd; mend it");
  EXPECT_EQ(MessageText({"a.yax", 0}, "odd", ""), "a.yax: odd");
}

TEST(OptionText, TakesWholeValuesOnly) {
  EXPECT_EQ(SizeOf("--size", "1x20000"), (render::PixelSize{1, 20000}));
  EXPECT_EQ(NumberOf("--pitch", "-1.5e1"), -15.0F);
  EXPECT_EQ(Whole16Of("--look", "-32768"), -32768);
  EXPECT_EQ(Whole16TripleOf("--cam", "1,-2,32767"), (std::array<std::int16_t, 3>{1, -2, 32767}));
  for (const char* text :
       {"", "10", "x", "10x", "x10", "0x5", "-1x5", "1x5x2", "1.5x2", " 1x2", "99999999999x1"})
    EXPECT_NE(Refusal([&] { SizeOf("--size", text); }), "") << text;
  for (const char* text : {"", "abc", "1a", "nan", "inf", "1e39", "1,5"})
    EXPECT_NE(Refusal([&] { NumberOf("--pitch", text); }), "") << text;
  for (const char* text : {"32768", "1.0", ""})
    EXPECT_NE(Refusal([&] { Whole16Of("--look", text); }), "") << text;
  for (const char* text : {"1,2", "1,2,3,4", "1,,3", "1,2,32768", ","})
    EXPECT_NE(Refusal([&] { Whole16TripleOf("--cam", text); }), "") << text;
  EXPECT_EQ(Refusal([] { SizeOf("--size", "ten"); }),
            "yax: --size 'ten' is not a size; give WIDTHxHEIGHT in pixels, such as 1024x768");
}

TEST(CameraOptions, StartAsTheWindowAndTakeItsFields) {
  const CameraOptions start = Parsed(AddCameraOptions, {});
  EXPECT_FALSE(start.View);
  EXPECT_EQ(start.Camera.CamZ, 5);
  EXPECT_EQ(start.Camera.CamYaw, 1.56F);
  EXPECT_EQ(start.Rotation.RotPitch, 90.0F);

  const CameraOptions given = Parsed(AddCameraOptions, {"--cam", "-1,2,-3", "--pitch=-20", "--yaw", "-5",
                                                        "--heading", "3.5", "--look", "-7"});
  EXPECT_EQ(given.Camera.CamX, -1);
  EXPECT_EQ(given.Camera.CamY, 2);
  EXPECT_EQ(given.Camera.CamZ, -3);
  EXPECT_EQ(given.Camera.CamYaw, 3.5F);
  EXPECT_EQ(given.Camera.CamLook, -7);
  EXPECT_EQ(given.Rotation.RotPitch, -20.0F);
  EXPECT_EQ(given.Rotation.RotYaw, -5.0F);

  EXPECT_EQ(Parsed(AddCameraOptions, {"--view", "left"}).View, render::NamedView::Left);
  EXPECT_NE(Refusal([] { Parsed(AddCameraOptions, {"--view", "above"}); }), "");
  EXPECT_NE(Refusal([] { Parsed(AddCameraOptions, {"--view", "top", "--look", "1"}); }), "");
  EXPECT_NE(Refusal([] { Parsed(AddCameraOptions, {"--look", "1", "--look", "2"}); }), "");
}

TEST(CameraOptions, KeepTheTargetIn16Bits) {
  const auto check = [](const char* cam, const char* look) {
    CheckCamera(Parsed(AddCameraOptions, {"--cam", cam, "--look", look}));
  };
  EXPECT_EQ(Refusal([&] { check("0,32767,0", "0"); }), "");
  EXPECT_NE(Refusal([&] { check("0,32767,0", "1"); }), "");
  EXPECT_NE(Refusal([&] { check("0,-32768,0", "-1"); }), "");
}

TEST(PictureOptions, NameSizeBackgroundAndFormat) {
  EXPECT_EQ(Parsed(AddPictureOptions, {}).Size, (render::PixelSize{1024, 768}));
  EXPECT_TRUE(Parsed(AddPictureOptions, {}).Appearance.BlackBackground);
  const render::Appearance white = Parsed(AddPictureOptions, {"--background", "white"}).Appearance;
  EXPECT_FALSE(white.BlackBackground);
  EXPECT_EQ(white.BackRed + white.BackGreen + white.BackBlue, 3);
  EXPECT_EQ(PictureFormatOf("a.b/c.PNG"), PictureFormat::Png);
  EXPECT_EQ(PictureFormatOf("c.bmp"), PictureFormat::Bmp);
  EXPECT_EQ(PictureFormatOf("-"), PictureFormat::Png);
  for (const char* name : {"png", "a.jpg", "a.png/b", ""})
    EXPECT_NE(Refusal([&] { PictureFormatOf(name); }), "") << name;
}

/// Die height 0.5 in the scene, 5 in the file; the stacked die's 0.3 and 3.
model::Package TwoDice() {
  model::Package package;
  package.UnitScale = 10.0F;
  package.CompZ = 0.5F;
  package.SDCompZ = 0.3F;
  package.SDBonds.Grow();
  return package;
}

TEST(LoopOptions, StartAsTheWindowOrAtTheDieHeight) {
  const model::WireBondSettings window = SettingsOf(Parsed(AddLoopOptions, {}), TwoDice());
  // A reset copies the height as the scene has it.
  EXPECT_EQ(window.BaseLoopHeight, 0.5F);
  EXPECT_EQ(window.StackLoopHeight, 0.5F);
  EXPECT_EQ(window.StitchExtension, 0.5F);
  EXPECT_EQ(window.Material, "Au");
  EXPECT_EQ(window.WireDiameter, 1.0F);
  EXPECT_EQ(window.Frequency, 1e6F);

  const model::WireBondSettings reader =
      SettingsOf(Parsed(AddLoopOptions, {"--loops", "die-height"}), TwoDice());
  EXPECT_FLOAT_EQ(reader.BaseLoopHeight, 5.0F);
  EXPECT_FLOAT_EQ(reader.StackExtension, 3.0F);
  EXPECT_EQ(reader.WireDiameter, 1.0F);
}

TEST(LoopOptions, SingleSettingsComeLast) {
  const TemporaryFolder folder;
  PutFile(folder / "a.zu", "BaseLoopHeight=7\r\nBaseExtension=8\r\n");
  const model::WireBondSettings settings = SettingsOf(
      Parsed(AddLoopOptions, {"--zu", folder / "a.zu", "--base-loop-height", "9", "--stack-extension", "edge",
                              "--stack-loop-height", "-2", "--stitch-extension", "0"}),
      TwoDice());
  EXPECT_EQ(settings.BaseLoopHeight, 9.0F);
  EXPECT_EQ(settings.BaseExtension, 8.0F);
  EXPECT_EQ(settings.StackExtension, model::kEdgeOfBaseDie);
  EXPECT_EQ(settings.StackLoopHeight, -2.0F);
  EXPECT_EQ(settings.StitchExtension, 0.0F);
  EXPECT_NE(Refusal([&] { SettingsOf(Parsed(AddLoopOptions, {"--zu", folder / "b.zu"}), TwoDice()); }), "");
  EXPECT_NE(Refusal([] { Parsed(AddLoopOptions, {"--stack-extension", "Edge"}); }), "");
}

TEST(ParameterFile, RestoresAllThatIsWritten) {
  const model::WireBondSettings written{.Material = "Cu",
                                        .WireDiameter = 1.25F,
                                        .Frequency = 2e9F,
                                        .BaseLoopHeight = 1.5F,
                                        .StackLoopHeight = 2.5F,
                                        .BaseExtension = 3.5F,
                                        .StackExtension = model::kEdgeOfBaseDie,
                                        .StitchExtension = 4.5F};
  model::WireBondSettings read;
  Apply(ReadParameterText("a.zu", setup::ParameterText(TwoDice(), written)), read);
  EXPECT_EQ(read.Material, "Cu");
  EXPECT_EQ(read.WireDiameter, 1.25F);
  EXPECT_EQ(read.Frequency, 2e9F);
  EXPECT_EQ(read.BaseLoopHeight, 1.5F);
  EXPECT_EQ(read.StackLoopHeight, 2.5F);
  EXPECT_EQ(read.BaseExtension, 3.5F);
  EXPECT_EQ(read.StackExtension, model::kEdgeOfBaseDie);
  EXPECT_EQ(read.StitchExtension, 4.5F);
}

TEST(ParameterFile, TellsTheLineThatIsWrong) {
  EXPECT_EQ(Refusal([] { ReadParameterText("a.zu", "YAXFile=b.yax\nBaseExtension=wide\n"); }),
            "a.zu:2: 'wide' is not a number; write one such as 12.5");
  EXPECT_EQ(Refusal([] { ReadParameterText("a.zu", "\r\nmaterial=Ag"); }),
            "a.zu:2: 'Ag' is no wire material; write Au, Al or Cu");

  testing::internal::CaptureStderr();
  const LoopValues values = ReadParameterText("a.zu", "BASEEXTENSTON=3\nbaseextension=,5\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "a.zu:1: 'BASEEXTENSTON=3' holds none of the nine keys and is ignored; correct or remove it\n");
  EXPECT_EQ(values.BaseExtension, 0.5F);
}

TEST(NetOptions, RefuseAPatternAndPassOverANameWithoutEnd) {
  // The library would run out of stack.
  for (const std::string& pattern :
       {"(" + std::string(100'000, 'a') + ")", std::string(50'000, '(') + std::string(50'000, ')')})
    EXPECT_NE(Refusal([&] {
                Parsed(AddNetOptions, {"--net-pattern", pattern});
              }),
              "")
        << pattern.substr(0, 9);
  const NetOptions nets = Parsed(AddNetOptions, {"--net-pattern", "(V..)_.*"});
  EXPECT_EQ(NetOf(nets, "VDD_1"), "VDD");
  const std::string endless = "VDD_" + std::string(1'000'000, 'a');
  EXPECT_EQ(NetOf(nets, endless), endless);
}

model::Package ThreeWiresAndAStitch() {
  model::Package package;
  for (const model::WireNameRec& wire : {model::WireNameRec{"A", "", "POWER", "1"},
                                         {"B", "", "ground", "2"},
                                         {"C", "", "", "2"},
                                         {"A", "B", "Signal", ""}}) {
    package.WireNames.Spare() = wire;
    package.WireNames.Grow();
  }
  return package;
}

TEST(WireOptions, SelectAsTheWireListDoes) {
  struct Case {
    Arguments arguments;
    std::vector<std::string> selected;
  };
  const Case cases[] = {{{"--tier", "2"}, {"B", "C"}},
                        {{"--tier", "1,2"}, {"A", "B", "C"}},
                        {{"--net", "p"}, {"A"}},
                        {{"--net", "Ground", "--net", "S"}, {"A:B", "B"}},
                        {{"--name", "A:B", "--name", "C"}, {"A:B", "C"}},
                        {{"--stitches"}, {"A:B"}},
                        // Filters add up, as the list's buttons do with Shift held down.
                        {{"--tier", "1", "--net", "G"}, {"A", "B"}}};
  for (const Case& with : cases) {
    const render::WireSelection selection =
        SelectionOf(Parsed(AddWireOptions, with.arguments), ThreeWiresAndAStitch());
    EXPECT_TRUE(selection.Shown);
    EXPECT_EQ(std::vector<std::string>(selection.Names.begin(), selection.Names.end()).size(),
              with.selected.size());
    for (const std::string& name : with.selected) EXPECT_TRUE(selection.Draws(name)) << name;
  }
  EXPECT_FALSE(SelectionOf({}, ThreeWiresAndAStitch()).Shown);
}

TEST(WireOptions, RefuseWhatMatchesNothing) {
  for (const Arguments& arguments :
       {Arguments{"--tier", "3"}, {"--tier", "01"}, {"--name", "a"}, {"--name", "A,B"}})
    EXPECT_NE(Refusal([&] { SelectionOf(Parsed(AddWireOptions, arguments), ThreeWiresAndAStitch()); }), "")
        << arguments[1];
  EXPECT_NE(Refusal([] { Parsed(AddWireOptions, {"--net", "x"}); }), "");
}

}  // namespace
}  // namespace yax
