#include "shell/main_window.h"

#include <QCloseEvent>
#include <QFile>
#include <QGridLayout>

#include "shell/gl_view.h"

namespace shell {

MainWindow::MainWindow(const StartUp& startUp, ProgramEnd& end) : end_(end) {
  resize(1024, 768);
  view_ = new GlView(this);
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(view_, 0, 0);

  form_ = std::make_unique<MainForm>(startUp, *view_, end_);
  form_->actions.setCaption = [this](const std::string& caption) {
    setWindowTitle(QFile::decodeName(caption.c_str()));
  };
  view_->exposed = [this] { end_.Run([this] { form_->Form_Paint(); }); };
}

MainWindow::~MainWindow() = default;

void MainWindow::Load() {
  layout()->activate();
  end_.Run([this] { form_->Form_Load(); });
  view_->resized = [this] {
    if (!isMinimized()) end_.Run([this] { form_->Form_Resize(); });
  };
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  end_.Run([this] { form_->Form_Unload(); });
}

}  // namespace shell
