/// The About window.
#pragma once

#include <QDialog>

namespace shell::ui {

class AboutWindow final : public QDialog {
 public:
  explicit AboutWindow(QWidget* owner);
};

}  // namespace shell::ui
