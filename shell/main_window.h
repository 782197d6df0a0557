/// The main window: the view, and everything that hangs on it.
#pragma once

#include <QWidget>

#include "shell/main_form.h"
#include "shell/program_end.h"

namespace shell {

class GlView;

class MainWindow final : public QWidget {
 public:
  MainWindow(const StartUp& startUp, ProgramEnd& end);
  ~MainWindow() override;

  /// Loads the package for the size that the window will have, so that its first showing is a finished
  /// picture.
  void Load();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  ProgramEnd& end_;
  GlView* view_;
  std::unique_ptr<MainForm> form_;
};

}  // namespace shell
