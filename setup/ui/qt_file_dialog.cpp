#include "setup/ui/qt_file_dialog.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace setup::ui {

namespace {

/// "zu files|*.zu|all files|*.*" as the toolkit takes it. A pattern of all files must also show those without
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
  const std::string question = OverwriteQuestion(path, request);
  return question.empty() ||
         QMessageBox::warning(parent, QString::fromStdString(request.DialogTitle),
                              QFile::decodeName(question.c_str()), QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace

std::optional<std::string> QtFileDialog::ShowOpen(const FileDialogRequest& request) {
  return Show(request, false);
}

std::optional<std::string> QtFileDialog::ShowSave(const FileDialogRequest& request) {
  return Show(request, true);
}

/// The window that the user works in, so that the dialog is not hidden behind it.
QWidget* QtFileDialog::Parent() const {
  QWidget* const active = QApplication::activeWindow();
  return active != nullptr ? active : parent_;
}

/// Where the user was last; at first beside the package.
QString QtFileDialog::StartFolder(const FileDialogRequest& request) const {
  if (!folder_.isEmpty() || request.PackagePath.empty()) return folder_;
  return QFileInfo(QFile::decodeName(request.PackagePath.c_str())).absolutePath();
}

std::optional<std::string> QtFileDialog::Show(const FileDialogRequest& request, bool save) {
  QFileDialog dialog(Parent(), QString::fromStdString(request.DialogTitle), StartFolder(request));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  // The question is asked here, since it must tell when the package itself would be replaced.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setNameFilters(NameFilters(request.Filter));
  if (!request.DefaultExt.empty()) dialog.setDefaultSuffix(QString::fromStdString(request.DefaultExt).mid(1));
  const QString name = QFile::decodeName(request.FileName.c_str());
  // A pattern is what the filter shows already; anything else is a name to start with.
  if (!request.FileName.starts_with('*')) dialog.selectFile(name);

  while (dialog.exec() == QDialog::Accepted) {
    const QString chosen = dialog.selectedFiles().value(0);
    const std::string path = QFile::encodeName(chosen).toStdString();
    if (save && !MayReplace(&dialog, path, request)) continue;
    folder_ = QFileInfo(chosen).absolutePath();
    return path;
  }
  return std::nullopt;
}

}  // namespace setup::ui
