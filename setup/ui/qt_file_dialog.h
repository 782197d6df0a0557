/// Qt's open and save dialogs, native where the desktop has them.
#pragma once

#include <QString>

#include "setup/file_dialog.h"

class QWidget;

namespace setup::ui {

class QtFileDialog final : public FileDialog {
 public:
  /// Dialogs stand over the active window, or over `parent` when another program has that.
  explicit QtFileDialog(QWidget* parent = nullptr) : parent_(parent) {}

  std::optional<std::string> ShowOpen(const FileDialogRequest& request) override;
  std::optional<std::string> ShowSave(const FileDialogRequest& request) override;

 private:
  std::optional<std::string> Show(const FileDialogRequest& request, bool save);
  QWidget* Parent() const;
  QString StartFolder(const FileDialogRequest& request) const;

  QWidget* parent_;
  QString folder_;  ///< where the user was last
};

}  // namespace setup::ui
