#include "setup/ui/qt_file_dialog.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace setup::ui {

namespace {

/// Converts "zu files|*.zu|all files|*.*" to Qt's form. Qt reads "*.*" literally and would hide names without
/// a point.
QStringList NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString pattern = parts[i + 1] == "*.*" ? QString("*") : parts[i + 1];
    filters.append(parts[i] + " (" + pattern + ")");
  }
  return filters;
}

bool MayReplace(QWidget* parent, const std::string& path, const FileDialogRequest& request) {
  const std::string question = OverwriteQuestion(path, request.PackagePath);
  return question.empty() ||
         QMessageBox::warning(parent, QString::fromStdString(request.DialogTitle),
                              QFile::decodeName(question.c_str()), QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes;
}

/// Qt's dialog, except that a typed name without a suffix first means the file of exactly that name.
class Dialog final : public QFileDialog {
 public:
  Dialog(QWidget* parent, const FileDialogRequest& request, const QString& folder)
      : QFileDialog(parent, QString::fromStdString(request.DialogTitle), folder),
        suffix_(QString::fromStdString(request.DefaultExt)) {}

  void accept() override {
    setDefaultSuffix({});
    const bool opens = acceptMode() == AcceptOpen;
    if (!opens || !QFileInfo::exists(selectedFiles().value(0))) setDefaultSuffix(suffix_);
    QFileDialog::accept();
  }

 private:
  QString suffix_;
};

}  // namespace

std::optional<std::string> QtFileDialog::ShowOpen(const FileDialogRequest& request) {
  return Show(request, false);
}

std::optional<std::string> QtFileDialog::ShowSave(const FileDialogRequest& request) {
  return Show(request, true);
}

/// The active window, so that the dialog is not hidden behind it.
QWidget* QtFileDialog::Parent() const {
  QWidget* const active = QApplication::activeWindow();
  return active != nullptr ? active : parent_;
}

/// The folder of the last dialog; at first the package's folder.
QString QtFileDialog::StartFolder(const FileDialogRequest& request) const {
  if (!folder_.isEmpty() || request.PackagePath.empty()) return folder_;
  return QFileInfo(QFile::decodeName(request.PackagePath.c_str())).absolutePath();
}

std::optional<std::string> QtFileDialog::Show(const FileDialogRequest& request, bool save) {
  Dialog dialog(Parent(), request, StartFolder(request));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  // Qt's question does not warn that the file is the package itself.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setNameFilters(NameFilters(request.Filter));
  // The filter already shows a pattern; anything else is the initial name. Qt would resolve a relative name
  // against the folder of the last dialog.
  if (!request.FileName.empty() && !request.FileName.starts_with('*'))
    dialog.selectFile(QFileInfo(QFile::decodeName(request.FileName.c_str())).absoluteFilePath());

  while (dialog.exec() == QDialog::Accepted) {
    const QString chosen = dialog.selectedFiles().value(0);
    const std::string path = QFile::encodeName(chosen).toStdString();
    if (request.OverwritePrompt && !MayReplace(&dialog, path, request)) continue;
    folder_ = QFileInfo(chosen).absolutePath();
    return path;
  }
  return std::nullopt;
}

}  // namespace setup::ui
