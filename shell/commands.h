/// The main window's command menu: its entries and what each does.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "render/picture.h"
#include "setup/file_dialog.h"

namespace shell {

class MainForm;
class ProgramEnd;

/// What the commands ask of the windows. Empty ones do nothing.
struct CommandActions {
  std::function<void()> unloadWireList;
  std::function<void()> showWireList;  ///< fills it first
  std::function<void()> showWireBondSetup;
  std::function<void()> setUpPrinter;
  std::function<void(const render::Picture& picture, bool fit)> print;
  std::function<void(const std::string& caption, const std::string& path)> showHelp;
  std::function<void()> showAbout;
};

/// Load, save and printer setup trap faults and end quietly; a fault in any other command ends the program.
class Commands {
 public:
  Commands(MainForm& form, ProgramEnd& end, setup::FileDialog& Filn) : form_(form), end_(end), Filn_(Filn) {}

  CommandActions actions;

  void DoLoadYAX_Click();
  void DoSavePic_Click();
  void DoPrinterSetup_Click();
  void DoNoScale_Click();
  void DoFitPage_Click();
  void DoBlack_Click();
  void DoWhite_Click();
  void DoBondWireSetup_Click();
  void DoWireList_Click();
  void DoNavHelp_Click();
  void DoViewHelp_Click();
  void DoAbout_Click();

  /// Loads a file that was dropped on the window, as DoLoadYAX_Click loads a chosen one.
  void LoadDropped(const std::string& path);

 private:
  void ChoosePackage();
  void LoadPackage(const std::string& path);
  void SavePicture();
  void Print(bool fit);
  void ShowHelp(const std::string& caption, const std::string& file);

  MainForm& form_;
  ProgramEnd& end_;
  setup::FileDialog& Filn_;
};

/// One line of the menu; a submenu's own entries follow it at the next level.
struct MenuEntry {
  int Level;
  const char* Name;
  const char* Caption;  ///< "-" for a separator
  void (Commands::*Click)();
};

/// The whole menu in order, without the pop-up itself.
std::span<const MenuEntry> CommandMenu();

}  // namespace shell
