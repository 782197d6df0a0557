#include "shell/main_form.h"

#include <optional>

#include "model/files.h"
#include "model/reader/read_package.h"
#include "render/gl/read_back.h"
#include "shell/navigation/scoped_flag.h"
#include "shell/title.h"

namespace shell {

MainForm::MainForm(const StartUp& startUp, render::gl::GlSurface& surface, ProgramEnd& end)
    : startUp_(startUp), surface_(surface), end_(end) {
  navigation_.Actions.Repaint = [this] { Form_Paint(); };
  navigation_.Actions.Reload = [this] { Form_Load(); };
  navigation_.Actions.EndProgram = [this] { end_.EndSilently(); };
}

void MainForm::Form_Load() {
  const navigation::ScopedFlag loading(loading_);
  if (!SkipStartup) Main();
  SkipStartup = false;
  HookWheel();
  FindHelp();
  if (!ReadPackageFile()) return end_.EndSilently();
  navigation_.ResetCamera();
  navigation_.ResetRotation();
  if (!SetupPixelFormat()) return end_.FatalError("Could not retrieve pixel format!");
  render::gl::SetUpView(loadedSize_, appearance_);
  sceneList_.BuildCube(scene_);
  ShowFrame();
}

/// The start-up routine: takes the file from the command line, else the file that is shown, else the sample
/// beside the program.
void MainForm::Main() {
  if (package_.PackagePath.empty()) package_.PackagePath = startUp_.ProgramFolder + "/AAAc.yax";
  const std::string& text = startUp_.CommandLine;
  // Deliberate: removes the first and the last character, whatever they are.
  if (!text.empty()) package_.PackagePath = text.size() > 2 ? text.substr(1, text.size() - 2) : "";
}

void MainForm::HookWheel() {
  if (navigation_.WheelHooked) return;
  Actions.HookWheel();
  navigation_.WheelHooked = true;
}

void MainForm::FindHelp() {
  Actions.EnableHelp(model::FileExists(startUp_.ProgramFolder + "/NavHelp.rtf"),
                     model::FileExists(startUp_.ProgramFolder + "/YaxViewHelp.rtf"));
}

/// Reads the file into a fresh package, which replaces the old one only after the whole file was read.
bool MainForm::ReadPackageFile() {
  std::optional<model::Package> package = model::reader::ReadPackage(package_);
  if (!package) return false;
  package_ = *std::move(package);
  Actions.SetCaption(shell::WindowTitle(package_.PackagePath));
  model::SetUnsetDefaults(settings_, package_);
  Actions.PackageRead();
  Actions.ResetWireBondSetup();
  return true;
}

/// Makes a fresh context for the view's present size; false when there is no usable pixel format.
bool MainForm::SetupPixelFormat() {
  sceneList_.Forget();
  loadedSize_ = surface_.Size();
  return surface_.CreateContext();
}

void MainForm::BuildCube() {
  if (loading_ || !surface_.MakeCurrent()) return;
  sceneList_.BuildCube(scene_);
}

void MainForm::RebuildAndRepaint() {
  BuildCube();
  Form_Paint();
}

void MainForm::SetBackground(bool black) {
  const std::int16_t component = black ? 0 : 1;
  appearance_ = {black, component, component, component};
  if (surface_.MakeCurrent()) render::gl::SetClearColour(appearance_);
  RebuildAndRepaint();
}

void MainForm::DrawFrame() {
  render::gl::DrawFrame(navigation_.Camera, navigation_.Rotation, package_.CompW, sceneList_);
}

/// A view that is not exposed needs no frame; its first exposure draws one.
void MainForm::ShowFrame() {
  if (!surface_.IsShown()) return;
  DrawFrame();
  surface_.SwapBuffers();
}

void MainForm::Form_Paint() {
  // While a load runs, the list still draws the previous package.
  if (!loading_ && surface_.MakeCurrent()) ShowFrame();
}

render::Picture MainForm::FramePicture() {
  if (!surface_.MakeCurrent()) return {};
  DrawFrame();
  return render::gl::ReadFrame(loadedSize_);
}

void MainForm::Form_Resize() {
  // Showing or moving the window does not change its size, so nothing needs rebuilding.
  if (loading_ || surface_.Size() == loadedSize_) return;
  Form_Load();
  if (end_.Ending()) return;
  render::gl::SetViewport(surface_.Size());
}

void MainForm::Form_Unload() {
  if (navigation_.WheelHooked) Actions.UnhookWheel();
  navigation_.WheelHooked = false;
  surface_.DeleteContext();
  end_.EndSilently();
}

}  // namespace shell
