/// The About window.
#pragma once

#include <QDialog>

namespace shell {

class AboutWindow final : public QDialog {
 public:
  explicit AboutWindow(QWidget* owner);
};

}  // namespace shell
