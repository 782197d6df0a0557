/// The main window: the view with its controls, the command menu, and the connections of forms and windows.
#pragma once

#include <QWidget>
#include <memory>

#include "setup/setup_form.h"
#include "setup/ui/qt_file_dialog.h"
#include "setup/ui/setup_window.h"
#include "shell/commands.h"
#include "shell/main_form.h"
#include "shell/program_end.h"
#include "shell/ui/command_menu.h"
#include "shell/ui/held_keys.h"
#include "shell/ui/printing.h"
#include "shell/ui/view_controls.h"
#include "shell/ui/view_input.h"
#include "shell/wire_list_form.h"

namespace shell::ui {

class AboutWindow;
class GlView;
class HelpWindow;
class WireListWindow;

class MainWindow final : public QWidget {
 public:
  /// `Filn`: dialogs to use instead of Qt's; must outlive the window.
  MainWindow(const StartUp& startUp, ProgramEnd& end, setup::FileDialog* Filn = nullptr);
  ~MainWindow() override;

  /// Loads the package at the window's future size, so that the window shows a finished picture as soon as it
  /// opens.
  void Load();

  MainForm& Form() { return form_; }

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void LayOut();
  void WireNavigation();
  void WireForm();
  void WireCommands();
  void FitNativeChildren();
  void OpenMenu(const QPoint& at);
  void PlaceFirst(QWidget& window, const QWidget* other);

  ProgramEnd& end_;
  GlView* view_;
  MainForm form_;
  ViewControls controls_;
  HeldKeys heldKeys_;
  ViewInput input_;
  setup::ui::QtFileDialog dialogs_;
  setup::FileDialog& Filn_;
  setup::Estimator estimator_;
  setup::SetupForm setupForm_;
  std::unique_ptr<setup::ui::SetupWindow> BWsu_;
  Commands commands_;
  CommandMenuPopup* DoMnu_;
  Printing printing_;
  HelpWindow* Hlp_ = nullptr;
  AboutWindow* about_ = nullptr;
  WireListForm wireListForm_;
  std::unique_ptr<WireListWindow> PinList_;
};

}  // namespace shell::ui
