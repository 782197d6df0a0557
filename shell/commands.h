/// The main window's command menu: its entries and their handlers.
#pragma once

#include <span>
#include <string>

#include "model/callback.h"
#include "render/picture.h"
#include "setup/file_dialog.h"

namespace shell {

class MainForm;
class ProgramEnd;

/// Calls from the commands to the windows.
struct CommandActions {
  model::Callback<> UnloadWireList;
  model::Callback<> ShowWireList;  ///< fills the list first
  model::Callback<> ShowWireBondSetup;
  model::Callback<> SetUpPrinter;
  model::Callback<const render::Picture&, bool> Print;               ///< the flag: fit the page
  model::Callback<const std::string&, const std::string&> ShowHelp;  ///< caption and path
  model::Callback<> ShowAbout;
};

/// A fault in load, save or printer setup ends only that command, without a message; a fault in any other
/// command ends the program.
class Commands {
 public:
  Commands(MainForm& form, ProgramEnd& end, setup::FileDialog& Filn) : form_(form), end_(end), Filn_(Filn) {}

  CommandActions Actions;

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
