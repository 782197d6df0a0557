#include "shell/main_form.h"

#include <optional>

#include "model/files.h"
#include "model/reader.h"
#include "model/title.h"
#include "render/read_back.h"

namespace shell {

namespace {

/// True as long as it lives.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;
  ~Flag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

MainForm::MainForm(const StartUp& startUp, render::GlSurface& surface, ProgramEnd& end)
    : startUp_(startUp), surface_(surface), end_(end) {}

void MainForm::Form_Load() {
  const Flag loading(loading_);
  if (!SkipStartup) Main();
  SkipStartup = false;
  FindHelp();
  if (!ReadPackageFile()) return end_.EndSilently();
  camera_ = {};
  rotation_ = {.RotPitch = 90.0F};
  if (!surface_.CreateContext()) return end_.FatalError("Could not retrieve pixel format!");
  sceneList_.Forget();
  loadedSize_ = surface_.Size();
  render::SetUpView(loadedSize_, appearance_);
  sceneList_.BuildCube(scene_);
  Form_Paint();
}

/// The start-up routine: the file of the command line, else the one shown, else the sample beside the
/// program.
void MainForm::Main() {
  if (package_.PackagePath.empty()) package_.PackagePath = startUp_.programFolder + "/AAAc.yax";
  const std::string& text = startUp_.commandLine;
  // Deliberate: the first and the last character go, whatever they are.
  if (!text.empty()) package_.PackagePath = text.size() > 2 ? text.substr(1, text.size() - 2) : "";
}

void MainForm::FindHelp() {
  if (!actions.enableHelp) return;
  actions.enableHelp(model::FileExists(startUp_.programFolder + "/NavHelp.rtf"),
                     model::FileExists(startUp_.programFolder + "/YaxViewHelp.rtf"));
}

/// Reads the file into a fresh package, which takes the place of the old one only when all of it is read.
bool MainForm::ReadPackageFile() {
  std::optional<model::Package> package = model::ReadPackage(package_);
  if (!package) return false;
  package_ = *std::move(package);
  if (actions.setCaption) actions.setCaption(model::WindowTitle(package_.PackagePath));
  model::SetUnsetDefaults(settings_, package_);
  if (actions.resetWireBondSetup) actions.resetWireBondSetup();
  return true;
}

void MainForm::BuildCube() {
  if (loading_ || !surface_.MakeCurrent()) return;
  sceneList_.BuildCube(scene_);
}

void MainForm::DrawFrame() { render::DrawFrame(camera_, rotation_, package_.CompW, sceneList_); }

void MainForm::Form_Paint() {
  if (!surface_.MakeCurrent()) return;
  DrawFrame();
  surface_.SwapBuffers();
}

render::Picture MainForm::FramePicture() {
  if (!surface_.MakeCurrent()) return {};
  DrawFrame();
  return render::ReadFrame(loadedSize_);
}

void MainForm::Form_Resize() {
  // The first showing, and a move, bring no new size: everything is built for it already.
  if (loading_ || surface_.Size() == loadedSize_) return;
  Form_Load();
  if (end_.Ending()) return;
  render::SetViewport(surface_.Size());
}

void MainForm::Form_Unload() {
  surface_.DeleteContext();
  end_.EndSilently();
}

}  // namespace shell
