#include "setup/ui/setup_window.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "setup/ui/qt_file_dialog.h"
#include "tests/setup/setup_fixture.h"

namespace setup {
namespace {

class SetupShown : public SetupFormTest {
 protected:
  SetupShown() { form.RunCommand3(); }
  void Open() {
    window.DoBondWireSetup();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  /// The control with this accessible name inside the frame of that caption ("" for any).
  template <class Widget>
  Widget* Find(const QString& frame, const QString& name) {
    for (Widget* widget : window.findChildren<Widget*>()) {
      const auto* parent = qobject_cast<QGroupBox*>(widget->parentWidget());
      if (!frame.isEmpty() && (parent == nullptr || parent->accessibleName() != frame)) continue;
      if (QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name) == name) return widget;
    }
    throw std::out_of_range((frame + ": " + name).toStdString());
  }
  QRadioButton* Option(const char* frame, const char* name) { return Find<QRadioButton>(frame, name); }
  QLineEdit* Value(const char* frame) { return Find<QLineEdit>(frame, QString(frame) + " value"); }
  void Click(QAbstractButton* button) {
    QTest::mouseClick(button, Qt::LeftButton, {}, {8, button->height() / 2});
  }
  void Press(const char* caption) { Click(Find<QPushButton>("", caption)); }

  int faults = 0;
  ui::SetupWindow window{form, [this](const std::function<void()>& handler) {
                           try {
                             handler();
                           } catch (const model::Fault&) {
                             ++faults;
                           }
                         }};
};

TEST_F(SetupShown, FramesKeepTheirTrailingSpaceAndFollowTheStackedDie) {
  Open();
  int frames = 0;
  for (const QGroupBox* frame : window.findChildren<QGroupBox*>()) {
    ++frames;
    EXPECT_EQ(frame->title(), frame->accessibleName() + " ");
    const bool needsStack =
        frame->title() == "Stacked Loop Extension " || frame->title() == "Stack Loop Height ";
    EXPECT_EQ(frame->isEnabled(), !needsStack) << frame->title().toStdString();
  }
  EXPECT_EQ(frames, 8);
  StackADie();
  form.RunCommand3();
  EXPECT_TRUE(Option("Stack Loop Height", "Custom")->isEnabled()) << "a load reaches the shown window";
}

TEST_F(SetupShown, EnterLeavesAFieldForItsOptionAndEscapeRestores) {
  Open();
  QLineEdit* const diameter = Value("Wire Diameter Mils");
  diameter->setFocus();
  diameter->setText("0");
  QTest::keyClick(diameter, Qt::Key_Return);
  EXPECT_EQ(diameter->text(), "1.0");
  EXPECT_TRUE(Option("Wire Diameter Mils", "Custom")->hasFocus());
  EXPECT_TRUE(Option("Wire Diameter Mils", "1.0")->isChecked());

  Click(Option("Stitch Loop Extension", "Custom"));
  QLineEdit* const stitch = Value("Stitch Loop Extension");
  stitch->setFocus();
  QTest::keyClicks(stitch, "99");
  QTest::keyClick(stitch, Qt::Key_Escape);
  EXPECT_EQ(stitch->text(), "25.000");
  EXPECT_EQ(settings.StitchExtension, 25.0F);
}

TEST_F(SetupShown, ArrowKeysWalkThroughAFramesOptions) {
  Open();
  Option("Material", "Au")->setFocus();
  QTest::keyClick(Option("Material", "Au"), Qt::Key_Down);
  EXPECT_EQ(settings.Material, "Al");
  EXPECT_TRUE(Option("Frequency", "Mhz")->isChecked()) << "other frames keep theirs";
}

TEST_F(SetupShown, ItGoesAwayByOkCancelAndItsCloseBoxAndComesBackWithTheSettings) {
  for (const std::string way : {"OK", "Cancel", "close"}) {
    Open();
    Value("Wire Diameter Mils")->setFocus();
    way == "close" ? static_cast<void>(window.close()) : Press(way.c_str());
    EXPECT_FALSE(window.isVisible()) << way;
    EXPECT_FALSE(form.Alive()) << way;
  }
  settings.Material = "Al";
  Open();
  EXPECT_TRUE(Option("Material", "Al")->isChecked());
}

TEST_F(SetupShown, FaultsGoToTheRunner) {
  Open();
  Value("Frequency")->setText("1e38");
  Click(Option("Frequency", "Ghz"));
  EXPECT_GT(faults, 0);
  faults = 0;
  Press("Apply");
  EXPECT_EQ(faults, 0) << "buttons trap theirs";
}

/// Plays the user of a save dialog who takes the offered name, then answers the question.
class SaveDialogUser : public QObject {
 public:
  SaveDialogUser() {
    connect(&timer_, &QTimer::timeout, this, [this] { Act(); });
    timer_.start(20);
  }

  QString Question, StartFolder;
  bool NoIsDefault = false;
  QMessageBox::StandardButton Answer = QMessageBox::No;

 private:
  void Act() {
    QWidget* const modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      Question = box->text();
      NoIsDefault = box->defaultButton() == box->button(QMessageBox::No);
      box->button(Answer)->click();
    } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
      if (StartFolder.isEmpty()) StartFolder = dialog->directory().absolutePath();
      // A dialog that comes back after "no" is cancelled.
      QMetaObject::invokeMethod(dialog, Question.isEmpty() ? "accept" : "reject", Qt::QueuedConnection);
    }
  }

  QTimer timer_;
};

TEST_F(SetupFormTest, SavingOverThePackageItselfIsAskedWithNoAsTheDefault) {
  ui::QtFileDialog files;
  const FileDialogRequest request{.FileName = package.PackagePath,
                                  .Filter = "zu files|*.zu|all files|*.*",
                                  .DefaultExt = ".zu",
                                  .OverwritePrompt = true,
                                  .PackagePath = package.PackagePath};
  for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
    SaveDialogUser user;
    user.Answer = answer;
    const auto chosen = files.ShowSave(request);
    EXPECT_TRUE(user.Question.contains("package file itself")) << user.Question.toStdString();
    EXPECT_TRUE(user.NoIsDefault);
    EXPECT_EQ(chosen, answer == QMessageBox::Yes ? std::optional(package.PackagePath) : std::nullopt);
  }
}

TEST_F(SetupFormTest, DialogsStartBesideThePackageAndThenWhereTheUserWas) {
  ui::QtFileDialog files;
  const QString beside = QDir(QString::fromStdString(folder / "")).absolutePath();
  std::filesystem::create_directory(folder / "other");
  const struct {
    std::string file;
    QString start;
  } dialogs[] = {
      {"*.zu", beside}, {PutFile(folder / "other/a.zu", ""), beside + "/other"}, {"*.zu", beside + "/other"}};
  for (const auto& [file, start] : dialogs) {
    SaveDialogUser user;
    if (file == "*.zu") user.Question = "cancel";
    const auto chosen =
        files.ShowOpen({.FileName = file, .Filter = "zu files|*.zu", .PackagePath = package.PackagePath});
    EXPECT_EQ(chosen, file == "*.zu" ? std::nullopt : std::optional(file));
    EXPECT_EQ(user.StartFolder, start);
  }
}

}  // namespace
}  // namespace setup
