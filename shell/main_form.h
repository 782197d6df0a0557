/// The main window's load, paint, resize and unload, as a walk through all that a package needs to be seen.
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

/// Where the program lies, and its command line.
struct StartUp {
  std::string ProgramFolder;
  std::string CommandLine;  ///< one text, a path in double quotes; see CommandLineText
};

/// What the form asks of its window.
struct MainFormActions {
  model::Callback<const std::string&> SetCaption;
  model::Callback<bool, bool> EnableHelp;  ///< the navigation page, the viewer page
  model::Callback<> PackageRead;           ///< it replaces the package before
  model::Callback<> HookWheel;  ///< from now on every wheel event of the program reaches WheelMoved
  model::Callback<> UnhookWheel;
  /// Command 3 of the wire bond setup: resets the settings from the package just read.
  model::Callback<> ResetWireBondSetup;
};

class MainForm {
 public:
  MainForm(const StartUp& startUp, render::gl::GlSurface& surface, ProgramEnd& end);

  MainFormActions Actions;

  /// Chooses, reads and shows the package.
  /// Faults  whatever reading and drawing fault with; what was shown before is shown still, or nothing
  void Form_Load();
  /// Draws a frame and shows it; nothing before the first context, and nothing while a load runs, which
  /// paints at its own end.
  void Form_Paint();
  /// The window has another size: reads the package again and builds everything for that size.
  void Form_Resize();
  /// Takes the view down; the program ends.
  void Form_Unload();

  /// Compiles the scene anew; nothing before the first context, and nothing while a load runs, which does it
  /// at its own end.
  void BuildCube();
  /// BuildCube, then a frame: after every change of what is drawn.
  void RebuildAndRepaint();
  /// A frame as it would be shown now, in pixels of the view.
  render::Picture FramePicture();
  /// Black or white; die tops, pad tops and wires follow.
  void SetBackground(bool black);

  /// The next load keeps PackagePath instead of running the start-up routine.
  bool SkipStartup = false;

  const std::string& ProgramFolder() const { return startUp_.ProgramFolder; }
  model::Package& Package() { return package_; }
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
