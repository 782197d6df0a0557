#include <QDialogButtonBox>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QTextBrowser>
#include <QTimer>
#include <algorithm>

#include "model/version.h"
#include "tests/full_disk.h"
#include "tests/shell/ui/main_window_fixture.h"

namespace shell {
namespace {

class MainWindowCommands : public MainWindowTest {
 protected:
  static constexpr char kOther[] = "COMPL 3\nCOMPW 6\nCOMPZ 1\n";
  /// With a wire of no length.
  static constexpr char kFaulty[] =
      "TECHNOLOGY WIRE_BOND\nCOMPL 3\nCOMPW 6\nCOMPZ 1\nCBP A 1 1 1\nWB A 1 1 N 1 1 0 0\n";

  /// Once the next modal window of this type is open, does `act` with it.
  template <class Window>
  void WhenOpen(std::function<void(Window&)> act) {
    auto* const timer = new QTimer(window.get());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
      auto* const open = qobject_cast<Window*>(QApplication::activeModalWidget());
      if (open == nullptr) return;
      timer->deleteLater();
      act(*open);
    });
    timer->start(10);
  }

  /// Printer Setup: the dialog's "Print to File (PDF)" with this file.
  void ChoosePdf(const std::string& path) {
    WhenOpen<QPrintDialog>([path](QPrintDialog& setup) {
      setup.findChild<QLineEdit*>("filename")->setText(QFile::decodeName(path.c_str()));
      setup.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    Entry("DoPrinterSetup").trigger();
  }

  QImage Frame() {
    const render::Picture frame = Form().FramePicture();
    const QImage image(frame.Rgb.data(), frame.Width, frame.Height, 3 * frame.Width, QImage::Format_RGB888);
    return image.convertToFormat(QImage::Format_RGB32);
  }
};

std::string Listing(const QMenu& menu, const std::string& indent = "") {
  std::string text;
  for (const QAction* entry : menu.actions()) {
    text += indent + (entry->isSeparator() ? "-" : entry->text().toStdString()) + "\n";
    if (entry->menu() != nullptr) text += Listing(*entry->menu(), indent + "  ");
  }
  return text;
}

TEST_F(MainWindowCommands, TheMenuReadsAsItAlwaysHas) {
  Open();
  EXPECT_EQ(Listing(Menu()),
            "Load YAX File ...\n-\nSave Picture ...\n-\nPrinter Setup ...\nPrint Picture\n  No Scale\n  Fit "
            "Page\n-\nBackground\n  Black\n  White\nWire Bond Setup ...\nWire List ...\n-\n"
            "Help\n  Navagation\n  Viewer\n  About\n");
}

TEST_F(MainWindowCommands, HelpEntriesFollowTheFilesAtEachLoad) {
  PutFile(folder / "NavHelp.rtf", "{\\rtf1 walk}");
  Open();
  EXPECT_TRUE(Entry("DoNavHelp").isEnabled());
  EXPECT_FALSE(Entry("DoViewHelp").isEnabled());
  PutFile(folder / "YaxViewHelp.rtf", "{\\rtf1 menu}");
  std::filesystem::remove(folder / "NavHelp.rtf");
  Key(Qt::Key_Home);
  EXPECT_FALSE(Entry("DoNavHelp").isEnabled());
  Entry("DoViewHelp").trigger();
  ASSERT_TRUE(Shown("3D Yax Viewer Help"));
  EXPECT_EQ(Shown("3D Yax Viewer Help")->findChild<QTextBrowser*>("Txt")->toPlainText(), "menu");
  // Gone since: a fault that nothing traps.
  std::filesystem::remove(folder / "YaxViewHelp.rtf");
  Entry("DoViewHelp").trigger();
  EXPECT_EQ(status, 1);
  EXPECT_EQ(boxes, std::vector<std::string>{
                       "3D YAX Viewer: Run-time error: No such file or directory (YaxViewHelp.rtf)"});
}

TEST_F(MainWindowCommands, AboutShowsTheVersionBesideTheView) {
  Open();
  Entry("DoAbout").trigger();
  const std::string version = "3D YAX Viewer Version " + std::string(model::kVersionText);
  const QWidget* const about = Named<QWidget>(version.c_str()).window();
  EXPECT_TRUE(about->isVisible() && !about->isModal());
  EXPECT_EQ(about->parentWidget(), window.get());
}

TEST_F(MainWindowCommands, LoadShowsTheChosenFileUntilHomeBringsTheFirstBack) {
  Open();
  Key(Qt::Key_U);
  Entry("DoLoadYAX").trigger();  // cancelled
  EXPECT_EQ(Changes(), "look 10");
  EXPECT_TRUE(window->windowTitle().endsWith(QString::fromUtf8("a package \xC3\xA4.yax")));

  dialog.answer = PutFile(folder / "other \xC3\xA9.yax", kOther);
  Entry("DoWhite").trigger();
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(Form().Package().CompW, 6.0F);
  EXPECT_EQ(Changes(), "");
  EXPECT_TRUE(window->windowTitle().endsWith(QString::fromUtf8("other \xC3\xA9.yax")));
  EXPECT_EQ(Frame().pixelColor(0, 0), QColor(Qt::white));  // the background outlives the load
  Entry("DoBlack").trigger();
  EXPECT_EQ(Frame().pixelColor(0, 0), QColor(Qt::black));
  ASSERT_EQ(dialog.asked.size(), 2U);
  EXPECT_EQ(dialog.asked[1].DialogTitle, "Load YAX File");
  EXPECT_EQ(dialog.asked[1].FileName, "*.yax");
  EXPECT_EQ(dialog.asked[1].Filter, "YAX files|*.yax|All files|*.*");
  EXPECT_FALSE(dialog.asked[1].OverwritePrompt);
  Key(Qt::Key_Home);
  EXPECT_EQ(Form().Package().CompW, 4.0F);
}

TEST_F(MainWindowCommands, ALoadThatFaultsLeavesTheProgramRunning) {
  Open();
  const QImage before = Frame();
  dialog.answer = PutFile(folder / "bad.yax", kFaulty);
  Entry("DoLoadYAX").trigger();
  EXPECT_FALSE(status);
  EXPECT_TRUE(boxes.empty());
  // An empty scene that the camera still moves in.
  QImage empty(before.size(), before.format());
  empty.fill(Qt::black);
  EXPECT_EQ(Frame(), empty);
  Key(Qt::Key_U);
  EXPECT_EQ(Changes(), "look 10");
  // Through the same file's name, mended: the next picture is whole again.
  PutFile(*dialog.answer, kDie);
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(Frame(), before);
}

TEST_F(MainWindowCommands, OnlyANewSizeReadsTheFileAgainAndTellsItsFault) {
  Open();
  int reads = 0;
  Form().actions.packageRead = [&reads] { ++reads; };
  window->hide();
  window->show();
  window->move(30, 30);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  window->showMinimized();
  QApplication::processEvents();
  window->showNormal();
  QApplication::processEvents();
  EXPECT_EQ(reads, 0);
  PutFile(package, kOther);
  window->resize(640, 480);
  QTRY_COMPARE_WITH_TIMEOUT(reads, 1, 1000);
  EXPECT_EQ(Form().Package().CompW, 6.0F);
  PutFile(package, kFaulty);
  window->resize(520, 420);
  QTRY_COMPARE_WITH_TIMEOUT(status, 1, 1000);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].find("3D YAX Viewer: Run-time error"), 0U) << boxes[0];
}

TEST_F(MainWindowCommands, ThePictureIsTheFrameWhateverLiesOverIt) {
  Open({503, 400});
  ASSERT_NE(View().Size().Width % 4, 0);
  const QImage frame = Frame();
  QWidget cover;
  cover.setGeometry(window->geometry());
  cover.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&cover));
  dialog.answer = folder / "a picture \xC3\xB6.bmp";
  Entry("DoSavePic").trigger();
  const QImage saved(QString::fromStdString(*dialog.answer));
  EXPECT_EQ(saved.convertToFormat(frame.format()), frame);
  EXPECT_EQ(saved.pixelColor(saved.rect().center()), QColor(Qt::white)) << "the die's top";
  EXPECT_EQ(dialog.asked[0].DialogTitle, "Save Picture");
  EXPECT_TRUE(dialog.asked[0].OverwritePrompt);
  EXPECT_EQ(dialog.asked[0].PackagePath, package);
}

TEST_F(MainWindowCommands, APictureIsSavedWholeOrNotAtAll) {
  Open();
  const std::string path = PutFile(folder / "old.bmp", "old picture");
  const std::size_t files = folder.FileCount();
  dialog.answer = path;
  {
    const FullDisk full(10000);
    Entry("DoSavePic").trigger();
  }
  EXPECT_EQ(GetFile(path), "old picture");
  for (const auto& answer : {std::optional(path + "/below a file.bmp"), std::optional<std::string>()}) {
    dialog.answer = answer;
    Entry("DoSavePic").trigger();
  }
  EXPECT_EQ(folder.FileCount(), files);
  EXPECT_FALSE(status);
  EXPECT_TRUE(boxes.empty());
}

TEST_F(MainWindowCommands, PrintsIntoTheChosenPdfOrSaysWhyNot) {
  Open();
  const std::string path = folder / "a page \xC3\xBC.pdf";
  ChoosePdf(path);
  EXPECT_FALSE(std::filesystem::exists(path));  // setting up prints nothing
  Entry("DoNoScale").trigger();
  EXPECT_EQ(GetFile(path).substr(0, 5), "%PDF-");
  std::filesystem::remove(path);
  Entry("DoFitPage").trigger();
  const std::string printed = GetFile(path);
  EXPECT_EQ(printed.substr(0, 5), "%PDF-");
  QString said;
  {
    const FullDisk full(1000);
    WhenOpen<QMessageBox>([&said](QMessageBox& box) {
      said = box.text();
      box.accept();
    });
    Entry("DoFitPage").trigger();
  }
  EXPECT_TRUE(said.contains("File too large")) << said.toStdString();
  EXPECT_EQ(GetFile(path), printed);
  EXPECT_FALSE(status);
}

TEST_F(MainWindowCommands, TheToolkitsOwnDialogIsFilledAndCancelled) {
  asks = nullptr;
  Open();
  QString said;
  WhenOpen<QFileDialog>([&](QFileDialog& load) {
    said = load.windowTitle() + ": " + load.nameFilters().join(";");
    load.reject();
  });
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(said, "Load YAX File: YAX files (*.yax);All files (*)");
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), 2000));  // with no window manager to see to it
  EXPECT_EQ(Form().Package().CompW, 4.0F);
  PutFile(folder / "other.yax", kOther);
  WhenOpen<QFileDialog>([this](QFileDialog& load) {
    // The name without its extension: the dialog brings it.
    load.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(folder / "other"));
    QTest::keyClick(&load, Qt::Key_Return);
  });
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(Form().Package().CompW, 6.0F);
}

}  // namespace
}  // namespace shell
