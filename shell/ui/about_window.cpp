#include "shell/ui/about_window.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>

#include "model/version.h"
#include "shell/title.h"

namespace shell::ui {

AboutWindow::AboutWindow(QWidget* owner) : QDialog(owner) {
  setWindowTitle("About");
  auto* const picture = new QLabel(this);
  picture->setPixmap(QApplication::windowIcon().pixmap(64, 64));
  auto* const version = new QLabel(QString(shell::kProgramTitle) + " Version " + model::kVersionText, this);
  version->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const words = new QLabel("Shows an integrated-circuit package in three dimensions.", this);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::close);

  auto* const grid = new QGridLayout(this);
  grid->addWidget(picture, 0, 0, 2, 1);
  grid->addWidget(version, 0, 1, Qt::AlignBottom);
  grid->addWidget(words, 1, 1, Qt::AlignTop);
  grid->addWidget(buttons, 2, 0, 1, 2);
  grid->setHorizontalSpacing(16);
  grid->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace shell::ui
