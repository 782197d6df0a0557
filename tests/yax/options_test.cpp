#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "model/input_error.h"
#include "setup/parameter_file.h"
#include "tests/model/package_text.h"
#include "tests/refusal.h"
#include "yax/options/loops.h"
#include "yax/options/nets_options.h"
#include "yax/options/option_text.h"
#include "yax/options/picture_options.h"
#include "yax/options/wires_options.h"
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

TEST(Message, NamesFileLineWhatAndWhatToDo) {
  EXPECT_EQ(model::MessageText({"a.yax", 12}, "odd", "mend it"), "a.yax:12: odd; mend it");
  EXPECT_EQ(model::MessageText({"a.yax", 0}, "odd", ""), "a.yax: odd");
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

TEST(PictureOptions, NameSizeAndFormat) {
  EXPECT_EQ(Parsed(AddPictureOptions, {}).Size, (render::PixelSize{1024, 768}));
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

/// Base height and extension, those of the stacked die, the stitch extension, material, diameter, frequency.
std::string TextOf(const model::WireBondSettings& settings) {
  return model::Fields(settings.BaseLoopHeight, settings.BaseExtension, settings.StackLoopHeight,
                       settings.StackExtension, settings.StitchExtension, settings.Material,
                       settings.WireDiameter, settings.Frequency);
}

TEST(LoopOptions, StartAsTheWindowOrAtTheDieHeightAndTakeSingleSettingsLast) {
  const TemporaryFolder folder;
  PutFile(folder / "a.zu",
          "\xEF\xBB\xBF"
          "BaseExtension=8\r\nBaseLoopHeight=7\r\n");
  const auto settings = [](const Arguments& arguments) {
    return TextOf(SettingsOf(Parsed(AddLoopOptions, arguments), TwoDice()));
  };
  // A reset copies the height as the scene has it.
  EXPECT_EQ(settings({}), "0.5 0.5 0.5 0.5 0.5 'Au' 1 1000000");
  // The reader's own defaults go by each wire's die; they have no frequency, so the window's counts.
  EXPECT_EQ(settings({"--loops", "die-height"}), "5 5 3 3 3 'Au' 1 1000000");
  // The edge of the base die is written as -1.
  EXPECT_EQ(settings({"--zu", folder / "a.zu", "--base-loop-height", "9", "--stack-extension", "edge",
                      "--stack-loop-height", "-2", "--stitch-extension", "0"}),
            "9 8 -2 -1 0 'Au' 1 1000000");
  EXPECT_NE(Refusal([&] { settings({"--zu", folder / "b.zu"}); }), "");
  EXPECT_NE(Refusal([&] { settings({"--stack-extension", "Edge"}); }), "");
}

TEST(ParameterFile, RestoresAllThatIsWritten) {
  const model::WireBondSettings written{"Cu", 1.25F, 2e9F, 1.5F, 2.5F, 3.5F, model::kEdgeOfBaseDie, 4.5F};
  model::WireBondSettings read;
  Apply(ReadParameterText("a.zu", setup::ParameterText(TwoDice(), written)), read);
  EXPECT_EQ(TextOf(read), "1.5 3.5 2.5 -1 4.5 'Cu' 1.25 2e+09");
}

TEST(ParameterFile, NamesTheLineThatIsWrong) {
  EXPECT_EQ(Refusal([] { ReadParameterText("a.zu", "YAXFile=b.yax\nBaseExtension=wide\n"); }),
            "a.zu:2: 'wide' is not a number; write one such as 12.5");
  EXPECT_EQ(Refusal([] { ReadParameterText("a.zu", "\r\nmaterial=Ag"); }),
            "a.zu:2: 'Ag' is not a wire material; write Au, Al or Cu");

  testing::internal::CaptureStderr();
  const LoopValues values = ReadParameterText("a.zu", "BASEEXTENSTON=3\nbaseextension=,5\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "a.zu:1: 'BASEEXTENSTON=3' has none of the nine keys and is ignored; correct or remove it\n");
  EXPECT_EQ(values.BaseExtension, 0.5F);
}

TEST(NetOptions, RefuseALongPattern) {
  // The library would run out of stack.
  for (const std::string& pattern :
       {"(" + std::string(100'000, 'a') + ")", std::string(50'000, '(') + std::string(50'000, ')')})
    EXPECT_NE(Refusal([&] { Parsed<analysis::NetRule>(AddNetOptions, {"--net-pattern", pattern}); }), "");
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
  const std::pair<Arguments, std::set<std::string>> cases[] = {
      {{"--tier", "2"}, {"B", "C"}},
      {{"--tier", "1,2"}, {"A", "B", "C"}},
      {{"--net", "p"}, {"A"}},
      {{"--net", "Ground", "--net", "S"}, {"A:B", "B"}},
      {{"--name", "A:B", "--name", "C"}, {"A:B", "C"}},
      {{"--stitches"}, {"A:B"}},
      // Filters add up, as the list's buttons do with Shift held down.
      {{"--tier", "1", "--net", "G"}, {"A", "B"}}};
  for (const auto& [arguments, selected] : cases) {
    const model::WireSelection selection =
        SelectionOf(Parsed(AddWireOptions, arguments), ThreeWiresAndAStitch());
    EXPECT_TRUE(selection.Shown);
    EXPECT_EQ(std::set<std::string>(selection.Names.begin(), selection.Names.end()), selected);
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
