/// The main window's load, paint, resize and unload.
#pragma once

#include <string>

#include "model/callback.h"
#include "model/package.h"
#include "model/wire_bond_settings.h"
#include "model/wire_selection.h"
#include "render/appearance.h"
#include "render/gl/frame.h"
#include "render/gl/gl_pen.h"
#include "render/gl/gl_surface.h"
#include "render/gl/scene_list.h"
#include "render/picture.h"
#include "render/scene.h"
#include "shell/navigation/navigation.h"
#include "shell/program_end.h"

namespace shell {

/// The program's folder and its command line.
struct StartUp {
  std::string ProgramFolder;
  std::string CommandLine;  ///< one text, a path in double quotes; see CommandLineText
};

/// Calls from the form to its window.
struct MainFormActions {
  model::Callback<const std::string&> SetCaption;
  model::Callback<bool, bool> EnableHelp;  ///< the navigation page, the viewer page
  model::Callback<> PackageRead;           ///< a new package has replaced the old one
  model::Callback<> HookWheel;             ///< sends every wheel event of the program to WheelMoved
  model::Callback<> UnhookWheel;
  /// Command 3 of the wire bond setup: resets the settings from the package just read.
  model::Callback<> ResetWireBondSetup;
};

class MainForm {
 public:
  MainForm(const StartUp& startUp, render::gl::GlSurface& surface, ProgramEnd& end);

  MainFormActions Actions;

  /// Chooses, reads and shows the package.
  /// Faults  as reading and drawing; the view then keeps the old picture or is empty
  void Form_Load();
  /// Draws a frame and shows it. Does nothing before the first context, nor during a load, which paints when
  /// it ends.
  void Form_Paint();
  /// Handles a new window size: reads the package again and builds everything for that size.
  void Form_Resize();
  /// Closes the view and ends the program.
  void Form_Unload();

  /// Compiles the scene again. Does nothing before the first context, nor during a load, which compiles when
  /// it ends.
  void BuildCube();
  /// BuildCube, then Form_Paint: call it after every change of what is drawn.
  void RebuildAndRepaint();
  /// The current frame as a picture, in pixels of the view.
  render::Picture FramePicture();
  /// Sets a black or white background; the colours of die tops, pad tops and wires change with it.
  void SetBackground(bool black);

  /// The next load keeps PackagePath instead of running the start-up routine.
  bool SkipStartup = false;

  const std::string& ProgramFolder() const { return startUp_.ProgramFolder; }
  const model::Package& Package() const { return package_; }
  /// Names the file that the next load reads, unless the start-up routine chooses another.
  void SetPackagePath(const std::string& path) { package_.PackagePath = path; }
  model::WireBondSettings& Settings() { return settings_; }
  model::WireSelection& Selection() { return selection_; }
  navigation::Navigation& Navigator() { return navigation_; }

 private:
  void Main();
  void HookWheel();
  void FindHelp();
  bool ReadPackageFile();
  bool SetupPixelFormat();
  void DrawFrame();
  void ShowFrame();

  StartUp startUp_;
  render::gl::GlSurface& surface_;
  ProgramEnd& end_;

  model::Package package_;
  model::WireBondSettings settings_;
  render::Appearance appearance_;
  model::WireSelection selection_;
  navigation::Navigation navigation_;

  render::gl::GlPen pen_;
  render::Scene scene_{{package_, settings_, appearance_, selection_}, pen_};
  render::gl::SceneList sceneList_;
  render::PixelSize loadedSize_;
  bool loading_ = false;
};

}  // namespace shell
