#include "setup/ui/qt_file_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "tests/setup/setup_fixture.h"

namespace setup {
namespace {

/// Plays the user of a dialog: takes the name that is offered, or types another one, then answers the
/// question. A dialog that comes back is cancelled.
class DialogUser : public QObject {
 public:
  DialogUser() {
    connect(&timer_, &QTimer::timeout, this, [this] { Act(); });
    timer_.start(20);
  }

  QString Type, Question, StartFolder, Filters;
  bool Cancel = false, NoIsDefault = false;
  QMessageBox::StandardButton Answer = QMessageBox::No;

 private:
  void Act() {
    QWidget* const modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      Question = box->text();
      NoIsDefault = box->defaultButton() == box->button(QMessageBox::No);
      if (QAbstractButton* const button = box->button(Answer)) return button->click();
      box->reject();
    } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
      if (StartFolder.isEmpty()) StartFolder = dialog->directory().absolutePath();
      Filters = dialog->nameFilters().join(";");
      if (!Type.isEmpty()) dialog->findChild<QLineEdit*>("fileNameEdit")->setText(Type);
      QMetaObject::invokeMethod(dialog, Cancel ? "reject" : "accept", Qt::QueuedConnection);
      Cancel = true;
    }
  }

  QTimer timer_;
};

class FileDialogs : public SetupFormTest {
 protected:
  FileDialogs() { std::filesystem::create_directory(folder / "other"); }

  std::optional<std::string> Open(const std::string& fileName = "*.zu") {
    return files.ShowOpen({.FileName = fileName,
                           .Filter = "zu files|*.zu|all files|*.*",
                           .DefaultExt = ".zu",
                           .PackagePath = package.PackagePath});
  }

  ui::QtFileDialog files;
  const QString beside = QDir(QString::fromStdString(folder / "")).absolutePath();
};

TEST_F(FileDialogs, SavingOverThePackageItselfAsksWithNoAsTheDefault) {
  for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
    DialogUser user;
    user.Answer = answer;
    const auto chosen = files.ShowSave({.FileName = package.PackagePath,
                                        .Filter = "zu files|*.zu|all files|*.*",
                                        .DefaultExt = ".zu",
                                        .OverwritePrompt = true,
                                        .PackagePath = package.PackagePath});
    EXPECT_TRUE(user.Question.contains("package file itself")) << user.Question.toStdString();
    EXPECT_TRUE(user.NoIsDefault);
    EXPECT_EQ(chosen, answer == QMessageBox::Yes ? std::optional(package.PackagePath) : std::nullopt);
  }
}

TEST_F(FileDialogs, StartBesideThePackageThenWhereTheUserWasAndSaveAtThePackageItself) {
  const std::string file = PutFile(folder / "other/a.zu", "");
  for (const auto& [name, start] :
       {std::pair(std::string("*.zu"), beside), {file, beside + "/other"}, {"*.zu", beside + "/other"}}) {
    DialogUser user;
    user.Cancel = name != file;
    EXPECT_EQ(Open(name), name != file ? std::nullopt : std::optional(file));
    EXPECT_EQ(user.StartFolder, start);
    EXPECT_EQ(user.Filters, "zu files (*.zu);all files (*)");
  }
  // A relative path is relative to the program's folder, not to the one of the last dialog.
  DialogUser user;
  user.Cancel = true;
  const std::string relative = std::filesystem::relative(package.PackagePath);
  files.ShowSave({.FileName = relative, .Filter = "zu files|*.zu", .PackagePath = relative});
  EXPECT_EQ(user.StartFolder, beside);
}

TEST_F(FileDialogs, ANameThatIsTypedIsTheFileOfThatNameElseTheOneWithTheSuffix) {
  PutFile(folder / "plain", "");
  PutFile(folder / "both", "");
  PutFile(folder / "both.zu", "");
  PutFile(folder / "other.zu", "");
  for (const auto& [type, name] : {std::pair("plain", "plain"), {"both", "both"}, {"both.zu", "both.zu"}}) {
    DialogUser user;
    user.Type = type;
    EXPECT_EQ(Open(), folder / name) << type;
  }
  std::filesystem::remove(folder / "plain");
  PutFile(folder / "plain.zu", "");
  DialogUser user;
  user.Type = "plain";
  EXPECT_EQ(Open(), folder / "plain.zu");
}

}  // namespace
}  // namespace setup
