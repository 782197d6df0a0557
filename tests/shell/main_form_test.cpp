#include "shell/main_form.h"

#include <limits>
#include <set>

#include "gl_recorder/gl_test.h"
#include "shell/command_line.h"
#include "tests/temporary_folder.h"

namespace {

using shell::MainForm;

/// A surface whose context is the recorder's.
class FakeSurface final : public render::gl::GlSurface {
 public:
  explicit FakeSurface(gl_recorder::Recorder& recorder) : recorder_(recorder) { recorder_.DropContext(); }

  bool CreateContext() override {
    recorder_.Note("CreateContext");
    if (creating) creating();
    if (usable) recorder_.NewContext();
    return usable;
  }
  bool MakeCurrent() override { return recorder_.HasContext(); }
  bool IsShown() const override { return shown; }
  void SwapBuffers() override { recorder_.Note("SwapBuffers"); }
  void DeleteContext() override {
    recorder_.Note("DeleteContext");
    recorder_.DropContext();
  }
  render::PixelSize Size() const override { return size; }

  render::PixelSize size{300, 200};
  bool usable = true;
  bool shown = true;
  std::function<void()> creating;

 private:
  gl_recorder::Recorder& recorder_;
};

constexpr char kGood[] = "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 2.5\nCOMPZ 1\n";
constexpr char kFaulty[] =
    "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 2.5\nCOMPZ 1\nCBP A 0 0 0 1 1 0 L NONE\nWB A 1 1 0 1 1 0 0\n";

class MainFormTest : public GlTest {
 protected:
  MainFormTest() {
    end.ShowCritical = [this](const std::string& title, const std::string& text) {
      box = title + "|" + text;
    };
    end.Leave = [this](int with) { status = with; };
  }

  /// A form that was given this command line.
  MainForm& Start(const std::string& commandLine) {
    form = std::make_unique<MainForm>(shell::StartUp{Folder(), commandLine}, surface, end);
    form->Actions.SetCaption = [this](const std::string& caption) { gl.Note("caption " + caption); };
    form->Actions.EnableHelp = [this](bool, bool) { gl.Note("enableHelp"); };
    form->Actions.HookWheel = [this] { gl.Note("hookWheel"); };
    form->Actions.UnhookWheel = [this] { gl.Note("unhookWheel"); };
    form->Actions.ResetWireBondSetup = [this] {
      gl.Note("resetWireBondSetup");
      form->RebuildAndRepaint();  // as the setup does
    };
    return *form;
  }
  /// One that has loaded this package.
  MainForm& Load(const std::string& text) {
    Start('"' + File("board.yax", text) + '"').Form_Load();
    return *form;
  }

  std::string File(const std::string& name, const std::string& text) { return PutFile(folder / name, text); }
  std::string Folder() { return std::filesystem::path(folder / "x").parent_path(); }

  /// The calls that mark the steps of a load.
  std::string Steps() {
    static const std::set<std::string> kMarks = {"glClearColor", "gluPerspective", "glViewport", "glGenLists",
                                                 "gluLookAt",    "glCallList",     "glRotatef"};
    std::string text;
    for (const gl_recorder::Call& call : gl.Log()) {
      if (call.Name.starts_with("gl") && !kMarks.contains(call.Name)) continue;
      if (call.Name == "glRotatef" && call.Numbers[1] == 0.0) continue;
      text += (call.Name == "gluLookAt" ? call.Name : call.Text) + "\n";
    }
    gl.ClearLog();
    return text;
  }

  TemporaryFolder folder;
  FakeSurface surface{gl};
  shell::ProgramEnd end;
  std::unique_ptr<MainForm> form;
  std::string box = "none";
  int status = -1;
};

constexpr char kShown[] =
    "CreateContext\nglClearColor(0, 0, 0, 0)\ngluPerspective(60, 1.5, 1, 2000)\nglViewport(0, 0, 300, 200)\n"
    "glGenLists(1)\ngluLookAt\nglRotatef(90, 0.1, 0, 0)\nglCallList(1)\nSwapBuffers\n";

TEST_F(MainFormTest, LoadReadsThenSetsUpThenBuildsThenPaints) {
  Load(kGood);
  const std::string read = "enableHelp\ncaption 3D YAX Viewer - 1.11.0 - board.yax\nresetWireBondSetup\n";
  EXPECT_EQ(Steps(), "hookWheel\n" + read + kShown);
  // Settings that were unset have their defaults: the die's height.
  EXPECT_EQ(form->Settings().BaseLoopHeight, 1.0F);

  // The next one goes the same way, with a fresh context and the camera at its start, but hooks no second
  // wheel.
  form->Navigator().Camera.CamX = 7;
  form->Navigator().ScrollPitch.SetValue(10);
  EXPECT_EQ(Steps(), "gluLookAt\nglRotatef(10, 0.1, 0, 0)\nglCallList(1)\nSwapBuffers\n");
  form->Form_Load();
  EXPECT_EQ(Steps(), read + kShown);
  EXPECT_EQ(form->Navigator().Camera.CamX, 0);
  EXPECT_EQ(box, "none");
}

TEST_F(MainFormTest, ResizeReadsThePackageAgainAndOnlyForANewSize) {
  Load(kGood);
  Steps();
  form->Form_Resize();
  EXPECT_EQ(Steps(), "");

  File("board.yax", "COMPL 4\nCOMPW 3\nCOMPZ 1\n");
  surface.size = {400, 200};
  // Another size that arrives in the middle starts no load inside the load.
  surface.creating = [this] {
    surface.size.Height = 100;
    form->Form_Resize();
  };
  form->Form_Resize();
  EXPECT_EQ(form->Package().CompW, 3.0F);
  const std::string steps = Steps();
  EXPECT_EQ(steps.find("CreateContext"), steps.rfind("CreateContext"));
  EXPECT_NE(steps.find("gluPerspective(60, 2, 1, 2000)"), std::string::npos);
  EXPECT_TRUE(steps.ends_with("SwapBuffers\nglViewport(0, 0, 400, 100)\n")) << steps;
}

TEST_F(MainFormTest, MissingFileEndsSilently) {
  for (const std::string commandLine : {"\"/no/such/file.yax\"", "\"\"", "\"", "ab"}) {
    shell::ProgramEnd fresh;
    fresh.ShowCritical = end.ShowCritical;
    fresh.Leave = end.Leave;
    status = -1;
    MainForm missing({Folder(), commandLine}, surface, fresh);
    fresh.Run([&] { missing.Form_Load(); });
    EXPECT_TRUE(fresh.Ending()) << commandLine;
    EXPECT_EQ(status, 0) << commandLine;
  }
  EXPECT_EQ(box, "none");
  EXPECT_EQ(Steps(), "");
}

TEST_F(MainFormTest, NoPixelFormatIsFatal) {
  Start('"' + File("board.yax", kGood) + '"');
  surface.usable = false;
  end.Run([this] { form->Form_Load(); });
  EXPECT_EQ(box, "Fatal Error In 3D YAX Viewer|Fatal Error: Could not retrieve pixel format!");
  EXPECT_EQ(status, 1);
  EXPECT_TRUE(Steps().ends_with("CreateContext\n"));
}

TEST_F(MainFormTest, FaultOfALoadIsReportedOnceAndNothingRunsAfterIt) {
  Start('"' + File("board.yax", kFaulty) + '"');
  end.Run([this] { form->Form_Load(); });
  EXPECT_EQ(box, "3D YAX Viewer|Run-time error: Division by zero (wire A: its ends coincide)");
  EXPECT_EQ(status, 1);
  Steps();
  box = "none";
  end.Run([this] { form->Form_Paint(); });
  end.RunTrapped([this] { form->Form_Load(); });
  end.EndSilently();
  EXPECT_EQ(Steps(), "");
  EXPECT_EQ(box, "none");
  EXPECT_EQ(status, 1);
}

TEST_F(MainFormTest, TooLittleMemoryIsAFault) {
  int ranWhileEnding = 0;
  end.ShowCritical = [&](const std::string&, const std::string& text) {
    box = text;
    end.Run([&] { ++ranWhileEnding; });
  };
  end.RunTrapped([] { throw std::bad_alloc(); });
  EXPECT_FALSE(end.Ending());
  end.Run([] { throw std::bad_alloc(); });
  EXPECT_EQ(box, "Run-time error: Out of memory");
  EXPECT_EQ(status, 1);
  EXPECT_EQ(ranWhileEnding, 0) << "no handler runs from the box's event loop";
}

TEST_F(MainFormTest, TrappedFaultLeavesTheProgramAlive) {
  Load(std::string(kGood) + "CBP A 0 0 0 1 1 0 L NONE\nWB A 1 1 0 2 1 0 0\n");
  // A rebuild that faults keeps the list shown.
  form->Settings().BaseLoopHeight = std::numeric_limits<float>::infinity();
  end.RunTrapped([this] { form->RebuildAndRepaint(); });
  Steps();
  form->Form_Paint();
  EXPECT_EQ(Steps(), "gluLookAt\nglRotatef(90, 0.1, 0, 0)\nglCallList(1)\nSwapBuffers\n");
  form->Settings() = {};
  // A load that faults has a fresh context, without a list.
  File("board.yax", kFaulty);
  end.RunTrapped([this] { form->Form_Load(); });
  Steps();
  form->Form_Paint();
  EXPECT_EQ(Steps(), "gluLookAt\nglRotatef(90, 0.1, 0, 0)\nglCallList(0)\nSwapBuffers\n");
  File("board.yax", kGood);
  form->Form_Load();
  EXPECT_TRUE(Steps().ends_with(kShown));
  EXPECT_EQ(status, -1);
}

TEST_F(MainFormTest, StartUpTakesTheCommandLineThenTheFileShownThenTheSample) {
  File("AAAc.yax", kGood);
  const std::string board = File("board.yax", kGood);
  const std::string other = File("other.yax", kGood);
  // Without a command line a file opened by menu stays through later loads.
  Start("").Form_Load();
  EXPECT_EQ(form->Package().PackagePath, Folder() + "/AAAc.yax");
  form->SetPackagePath(other);
  form->Form_Load();
  EXPECT_EQ(form->Package().PackagePath, other);
  // With one it gives way: only the load that skips the start-up routine keeps it.
  Start('"' + board + '"').Form_Load();
  form->SetPackagePath(other);
  form->SkipStartup = true;
  form->Form_Load();
  EXPECT_EQ(form->Package().PackagePath, other);
  EXPECT_FALSE(form->SkipStartup);
  form->Form_Load();
  EXPECT_EQ(form->Package().PackagePath, board);
  // The first and the last character go whatever they are.
  Start('x' + board + 'y').Form_Load();
  EXPECT_EQ(form->Package().PackagePath, board);
}

TEST_F(MainFormTest, NothingIsDrawnBeforeTheFirstContext) {
  Start('"' + File("board.yax", kGood) + '"');
  form->Form_Paint();
  form->RebuildAndRepaint();
  form->SetBackground(false);
  EXPECT_TRUE(form->FramePicture().Rgb.empty());
  EXPECT_EQ(Steps(), "");
  form->Form_Load();
  EXPECT_NE(Steps().find("CreateContext\nglClearColor(1, 1, 1, 0)\n"), std::string::npos);
}

TEST_F(MainFormTest, AFrameOfAHiddenViewIsLeftToTheFirstExposure) {
  surface.shown = false;
  Load(kGood);
  EXPECT_TRUE(Steps().ends_with("glGenLists(1)\n"));
  surface.shown = true;
  form->Form_Paint();
  EXPECT_EQ(Steps(), "gluLookAt\nglRotatef(90, 0.1, 0, 0)\nglCallList(1)\nSwapBuffers\n");
}

TEST_F(MainFormTest, BackgroundIsSetAtOnceAndEverythingRebuilt) {
  Load(kGood);
  Steps();
  form->SetBackground(false);
  const std::string frame = "gluLookAt\nglRotatef(90, 0.1, 0, 0)\nglCallList(2)\n";
  EXPECT_EQ(Steps(), "glClearColor(1, 1, 1, 0)\nglGenLists(1)\n" + frame + "SwapBuffers\n");
  // A picture is a frame that is not shown.
  EXPECT_EQ(form->FramePicture().Rgb.size(), 300U * 200U * 3U);
  EXPECT_EQ(Steps(), frame);
}

TEST_F(MainFormTest, UnloadTakesTheViewDownAndEnds) {
  Load(kGood);
  Steps();
  end.Run([this] { form->Form_Unload(); });
  EXPECT_EQ(Steps(), "unhookWheel\nDeleteContext\n");
  EXPECT_EQ(status, 0);
  form->Form_Paint();
  EXPECT_EQ(Steps(), "");
}

TEST(CommandLineText, IsTheArgumentsInDoubleQuotes) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {{{}, ""},
                                                                    {{"a.yax"}, "\"a.yax\""},
                                                                    {{"my", "file.yax"}, "\"my file.yax\""},
                                                                    {{""}, "\"\""},
                                                                    {{"", "b"}, "\" b\""}};
  for (const auto& [words, text] : cases) EXPECT_EQ(shell::CommandLineText(words), text);
}

}  // namespace
