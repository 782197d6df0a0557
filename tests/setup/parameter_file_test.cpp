#include "setup/parameter_file.h"

#include "tests/setup/setup_fixture.h"

namespace setup {
namespace {

TEST_F(SetupFormTest, TheParameterTextFollowsEveryChangeAndIsSaved) {
  package.PackagePath = "/p k/\xC3\xA4 board.yax";
  form.RunCommand3();
  const std::string base =
      "YAXFile=\xC3\xA4 "
      "board.yax\r\nMaterial=Au\r\nWireDiameter=1\r\nFrequency=1000000\r\nBaseLoopHeight=0.25\r\n";
  EXPECT_EQ(controls.Vu, base + "BaseExtension=0.25\r\n");
  controls.LEc[0].Text = "1,50";
  form.LH_Click(3);
  EXPECT_EQ(controls.Vu, base + "BaseExtension=1.5\r\n");
  StackADie();
  form.LH_Click(5);
  EXPECT_EQ(
      controls.Vu,
      base + "BaseExtension=1.5\r\nStackLoopHeight=0.25\r\nStackExtension=-1\r\nStichExtension=0.25\r\n");
  dialog.answer = folder / "a.zu";
  form.Cmd_Click(6);
  EXPECT_EQ(GetFile(folder / "a.zu"), controls.Vu);
}

TEST_F(SetupFormTest, LoadTakesForeignFiles) {
  form.RunCommand3();
  rebuilds = 0;
  // The last two keys are those that are written; the window reads others.
  LoadText(
      "yaxfile=sub/other.yax\nmaterial=al\nWIREDIAMETER=1.250\r\nFrequency=4700\nBaseExtenston=7\n"
      "StichExtenston=8 mil\nStackExtension=-1.0\nBaseLoopHeight=25.000\nStackLoopHeight=0\n"
      "BaseExtension=1\nStichExtension=1");
  EXPECT_EQ(rebuilds, 1);
  EXPECT_EQ(package.PackagePath, folder / "sub/other.yax");
  EXPECT_EQ(settings.Material, "Al");
  EXPECT_EQ(settings.BaseExtension, 7.0F);
  EXPECT_EQ(settings.StitchExtension, 8.0F);
  EXPECT_NE(controls.Vu.find("YAXFile=other.yax\r\n"), std::string::npos);
  const struct {
    int selected, expected;
    const Field& field;
    const char* text;
  } frames[] = {
      {Selected(controls.WD), 4, controls.WDc, "1.250"}, {Selected(controls.FQ), 0, controls.FQc, "4.7"},
      {SelectedLoop(0), 0, controls.LHc[0], "25.000"},  // 25 is the die height in file units
      {SelectedLoop(2), 6, controls.LEc[1], "-1.0"},    // only the text -1 means the die's edge by itself
      {SelectedLoop(3), 7, controls.LHc[1], "0"},       // unset
      {SelectedLoop(4), 10, controls.LEc[2], "8 mil"}};
  for (const auto& [selected, expected, field, text] : frames) {
    EXPECT_EQ(selected, expected) << text;
    EXPECT_EQ(field.Text, text);
  }

  form.RunCommand3();
  LoadText("StackExtension=-1\r\n");
  EXPECT_EQ(SelectedLoop(2), 5);
  EXPECT_EQ(controls.LEc[1].Text, "25") << "the box keeps what Reset put there";
  LoadText("Frequency=500,5 Hz\rMaterial=Al\r");
  EXPECT_EQ(settings.Material, "Al") << "a line may end in CR alone";
  EXPECT_EQ(Selected(controls.FQ), 3);
  EXPECT_EQ(controls.FQc.Text, "500,5 Hz");
  EXPECT_EQ(settings.Frequency, 500.5F);
}

TEST_F(SetupFormTest, DialogsGetTheirRequestsAndCancellingChangesNothing) {
  form.RunCommand3();
  rebuilds = 0;
  const auto asked = [this](std::size_t button) {
    form.Cmd_Click(button);
    const FileDialogRequest& r = dialog.asked.back();
    return dialog.shown + ": " + r.DialogTitle + ", " + r.FileName + ", " + r.Filter + ", " +
           (r.OverwritePrompt ? "asks, " : "") + r.DefaultExt;
  };
  EXPECT_EQ(asked(6),
            "save: Save ZU file, " + package.PackagePath + ", zu files|*.zu|all files|*.*, asks, .zu");
  EXPECT_EQ(asked(5), "open: Load ZU File, *.zu, zu files|*.zu|All files|*.*, .zu");
  dialog.answer = folder / "missing.zu";
  form.Cmd_Click(5);
  EXPECT_EQ(rebuilds, 0);
  EXPECT_EQ(GetFile(package.PackagePath), "");
}

TEST_F(SetupFormTest, TheOverwriteQuestionKnowsThePackageByAnyName) {
  std::filesystem::create_symlink(package.PackagePath, folder / "link.zu");
  PutFile(folder / "other.zu", "");
  EXPECT_EQ(OverwriteQuestion(folder / "new.zu", package.PackagePath), "");
  EXPECT_NE(OverwriteQuestion(folder / "other.zu", package.PackagePath).find("already exists"),
            std::string::npos);
  for (const std::string& same : {folder / "board.yax", folder / "./board.yax", folder / "link.zu"})
    EXPECT_NE(OverwriteQuestion(same, package.PackagePath).find("package file itself"), std::string::npos)
        << same;
}

TEST(ParameterFile, ItsNameReplacesThreeCharacters) {
  using Name = std::pair<const char*, std::optional<std::string>>;
  for (const auto& [path, name] :
       {Name("/a/board.yax", "board.zu"), Name("board.YAX", "board.zu"), Name("/a.b/yax", "zu"),
        Name("/a/package", "packzu"), Name("/a/b.\xC3\xA4\xC3\xB6x", "b.zu"), Name("/a/ya", std::nullopt),
        Name("/a/\xC3\xA4\xC3\xA4", std::nullopt), Name("", std::nullopt), Name("/a/", std::nullopt)})
    EXPECT_EQ(ParameterFileName(path), name) << path;
}

}  // namespace
}  // namespace setup
