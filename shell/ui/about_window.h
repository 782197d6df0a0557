/// The About window, which shows the icon of the application.
#pragma once

#include <QDialog>

namespace shell::ui {

class AboutWindow final : public QDialog {
 public:
  explicit AboutWindow(QWidget* owner);
};

}  // namespace shell::ui
