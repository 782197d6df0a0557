/// Qt's open and save dialogs, native where the desktop has them.
#pragma once

#include <QString>

#include "setup/file_dialog.h"

class QWidget;

namespace setup::ui {

class QtFileDialog final : public FileDialog {
 public:
  /// The active window is the parent of dialogs; `parent` is, when another program is active.
  explicit QtFileDialog(QWidget* parent = nullptr) : parent_(parent) {}

  std::optional<std::string> ShowOpen(const FileDialogRequest& request) override;
  std::optional<std::string> ShowSave(const FileDialogRequest& request) override;

 private:
  std::optional<std::string> Show(const FileDialogRequest& request, bool save);
  QWidget* Parent() const;
  QString StartFolder(const FileDialogRequest& request) const;

  QWidget* parent_;
  QString folder_;  ///< folder of the last dialog
};

}  // namespace setup::ui
