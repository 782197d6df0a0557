// Command lines: which file the start-up routine opens, and how the program then runs or ends.
//
// The first byte says whether GL is available; the rest are the arguments, each ended by a NUL byte.
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "fuzz/arguments.h"
#include "fuzz/expect.h"
#include "gl_recorder/gl_recorder.h"
#include "shell/command_line.h"
#include "shell/main_form.h"

namespace {

constexpr char kPackage[] = "COMPL 4\nCOMPW 4\nCOMPZ 1\nCBP A 1 1 0 1 1 0 L ROUND\nWB A 1 1 F 9 9 1 0\n";

/// The program's folder, which is also the working directory. It has a good package, a package whose drawing
/// faults, and a folder.
class ProgramFolder {
 public:
  ProgramFolder() {
    std::string name = std::filesystem::temp_directory_path() / "fuzz.XXXXXX";
    Expect(mkdtemp(name.data()) != nullptr && chdir(name.c_str()) == 0, "there is a folder");
    path_ = name;
    std::ofstream("AAAc.yax") << kPackage;
    std::ofstream("a b") << "COMPZ 1\nCBP A 1 1 0 1 1 0 L ROUND\nWB A 1 1 F 1 1 1 0\n";
    std::filesystem::create_directory("folder");
    std::ofstream("NavHelp.rtf") << "{\\rtf1 }";
  }
  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;
  ~ProgramFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

class Surface final : public render::gl::GlSurface {
 public:
  explicit Surface(bool granted) : granted_(granted) {}
  bool CreateContext() override { return has_ = granted_; }
  bool MakeCurrent() override { return has_; }
  bool IsShown() const override { return true; }
  void SwapBuffers() override {}
  void DeleteContext() override { has_ = false; }
  render::PixelSize Size() const override { return size; }

  render::PixelSize size{640, 480};

 private:
  bool granted_;
  bool has_ = false;
};

/// The path that the user means: the sample without arguments, else all of them as one path.
std::string PathMeant(const std::vector<std::string>& arguments, const std::string& programFolder) {
  if (arguments.empty()) return programFolder + "/AAAc.yax";
  std::string path = arguments[0];
  for (std::size_t i = 1; i < arguments.size(); ++i) path += " " + arguments[i];
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ProgramFolder folder;
  if (size == 0) return -1;

  const bool granted = (data[0] & 1) != 0;
  const auto arguments = ArgumentsOf({reinterpret_cast<const char*>(data) + 1, size - 1});
  const gl_recorder::Recorder gl;
  Surface surface(granted);
  int status = -1;
  std::string message;
  shell::ProgramEnd end;
  end.Leave = [&](int with) { status = with; };
  end.ShowCritical = [&](const std::string&, const std::string& text) { message = text; };
  const bool asks = std::count(arguments.begin(), arguments.end(), "--help") +
                        std::count(arguments.begin(), arguments.end(), "--version") >
                    0;
  Expect(shell::AnswerAtOnce(arguments).empty() != asks,
         "--help and --version are answered at once, and nothing else is");
  const char* const display = shell::QtOption(arguments, "display");
  Expect(display == nullptr || std::count(arguments.begin() + 1, arguments.end(), display) > 0,
         "an option's value is one of the arguments");

  shell::MainForm form({folder.Path(), shell::CommandLineText(arguments)}, surface, end);
  bool caption = false;
  form.Actions.SetCaption = [&](const std::string&) { caption = true; };
  form.Actions.EnableHelp = [](bool navigation, bool viewer) {
    Expect(navigation && !viewer, "a help page is enabled when its file exists");
  };
  end.Run([&] { form.Form_Load(); });

  const std::string path = PathMeant(arguments, folder.Path());
  Expect(form.Package().PackagePath == path, "the arguments are one path");
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) {
    Expect(status == 0 && message.empty() && !caption, "a missing file ends the program without a message");
  } else if (!granted) {
    Expect(status == 1 && !message.empty(), "without GL there is a message");
  } else {
    Expect(status == -1 ? message.empty() : status == 1 && !message.empty(),
           "the program runs on, or ends with a message");
  }
  surface.size = {320, 200};
  end.Run([&] { form.Form_Resize(); });
  end.Run([&] { form.Form_Unload(); });
  Expect(status >= 0, "the program ends");
  return 0;
}
