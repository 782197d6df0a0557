#include <QBuffer>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QTextBrowser>
#include <QTimer>
#include <algorithm>
#include <iterator>

#include "model/version.h"
#include "render/bitmap.h"
#include "shell/wire_list_window.h"
#include "tests/full_disk.h"
#include "tests/shell/main_window_fixture.h"

namespace shell {
namespace {

class MainWindowCommands : public MainWindowTest {
 protected:
  static constexpr char kOther[] = "COMPL 3\nCOMPW 6\nCOMPZ 1\n";
  static constexpr char kFaulty[] =
      "TECHNOLOGY WIRE_BOND\nCOMPL 3\nCOMPW 6\nCOMPZ 1\n"
      "CBP A 1 1 1 0.1 0.1 0 L RECTANGLE\nSBP A 1 1 0 0 0.1 0.1 L RECTANGLE\nWB A 1 1 N 1 1 0 0\n";  // no
                                                                                                     // length

  std::string Title() const { return window->windowTitle().toStdString(); }

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
      for (QLineEdit* edit : setup.findChildren<QLineEdit*>())
        if (edit->objectName() == "filename") edit->setText(QFile::decodeName(path.c_str()));
      setup.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    Entry("DoPrinterSetup").trigger();
  }

  QColor PixelAt(int x, int y) {
    const render::Picture picture = Form().FramePicture();
    const std::size_t at = static_cast<std::size_t>(y * picture.Width + x) * 3;
    return QColor(picture.Rgb[at], picture.Rgb[at + 1], picture.Rgb[at + 2]);
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
            "Page\n-\n"
            "Background\n  Black\n  White\nWire Bond Setup ...\nWire List ...\n-\n"
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
  EXPECT_TRUE(Entry("DoViewHelp").isEnabled());
  Entry("DoViewHelp").trigger();
  EXPECT_EQ(window->findChild<QTextBrowser*>("Txt")->toPlainText(), "menu");
  EXPECT_EQ(window->findChild<QTextBrowser*>("Txt")->window()->windowTitle(), "3D Yax Viewer Help");
  // Gone since: a fault that nothing traps.
  std::filesystem::remove(folder / "YaxViewHelp.rtf");
  Entry("DoViewHelp").trigger();
  EXPECT_EQ(status, 1);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0], "3D YAX Viewer: Run-time error: No such file or directory (YaxViewHelp.rtf)");
}

TEST_F(MainWindowCommands, AboutShowsTheVersionBesideTheView) {
  Open();
  Entry("DoAbout").trigger();
  auto* const about = qobject_cast<QDialog*>(
      Named<QWidget>(("3D YAX Viewer Version " + std::string(model::kVersionText)).c_str()).window());
  ASSERT_TRUE(about);
  EXPECT_TRUE(about->isVisible());
  EXPECT_FALSE(about->isModal());
  EXPECT_EQ(about->parentWidget(), window.get());
}

TEST_F(MainWindowCommands, LoadShowsTheChosenFileUntilHomeBringsTheFirstBack) {
  Open();
  Entry("DoWireList").trigger();
  QPointer<WireListWindow> list;
  for (QWidget* shown : QApplication::topLevelWidgets())
    if (auto* const found = dynamic_cast<WireListWindow*>(shown)) list = found;
  ASSERT_TRUE(list && list->isVisible());
  Key(Qt::Key_U);
  Entry("DoLoadYAX").trigger();  // cancelled
  EXPECT_FALSE(list);
  EXPECT_EQ(Changes(), "look10");
  EXPECT_NE(Title().find("a package \xC3\xA4.yax"), std::string::npos);

  PutFile(folder / "other \xC3\xA9.yax", kOther);
  dialog.answer = folder / "other \xC3\xA9.yax";
  Entry("DoWhite").trigger();
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(Form().Package().CompW, 6.0F);
  EXPECT_EQ(Changes(), "");
  EXPECT_NE(Title().find("other \xC3\xA9.yax"), std::string::npos);
  EXPECT_EQ(PixelAt(0, 0), QColor(Qt::white));  // the background outlives the load
  ASSERT_EQ(dialog.asked.size(), 2U);
  EXPECT_EQ(dialog.asked[1].DialogTitle, "Load YAX File");
  EXPECT_EQ(dialog.asked[1].FileName, "*.yax");
  EXPECT_EQ(dialog.asked[1].Filter, "YAX files|*.yax|All files|*.*");
  EXPECT_EQ(dialog.asked[1].Flags, 16396);
  Key(Qt::Key_Home);
  EXPECT_EQ(Form().Package().CompW, 4.0F);
}

TEST_F(MainWindowCommands, ALoadThatFaultsLeavesTheProgramRunning) {
  Open();
  PutFile(folder / "bad.yax", kFaulty);
  dialog.answer = folder / "bad.yax";
  const render::Picture before = Form().FramePicture();
  Entry("DoLoadYAX").trigger();
  EXPECT_FALSE(status);
  EXPECT_TRUE(boxes.empty());
  // An empty scene that the camera still moves in.
  const render::Picture empty = Form().FramePicture();
  EXPECT_EQ(std::count(empty.Rgb.begin(), empty.Rgb.end(), 0), std::ssize(empty.Rgb));
  Key(Qt::Key_U);
  EXPECT_EQ(Changes(), "look10");
  // Through the same file's name, mended: the next picture is whole again.
  PutFile(folder / "bad.yax", kDie);
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(Form().FramePicture().Rgb, before.Rgb);
}

TEST_F(MainWindowCommands, AFaultThatNothingTrapsIsShownOnceAndEndsTheProgram) {
  Open();
  PutFile(package, kFaulty);
  window->resize(520, 420);
  QApplication::processEvents();
  EXPECT_EQ(status, 1);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].find("3D YAX Viewer: Run-time error"), 0U) << boxes[0];
  PutFile(package, kDie);
  window->resize(540, 440);
  Key(Qt::Key_U);
  Key(Qt::Key_Home);
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_EQ(Nav().Camera.CamLook, 0);
}

TEST_F(MainWindowCommands, OnlyANewSizeReadsTheFileAgain) {
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
  GLint viewport[4] = {};
  ASSERT_TRUE(View().MakeCurrent());
  glGetIntegerv(GL_VIEWPORT, viewport);
  EXPECT_EQ(viewport[2], View().Size().Width);
  EXPECT_EQ(viewport[3], View().Size().Height);
}

TEST_F(MainWindowCommands, ThePictureIsTheFrameWhateverLiesOverIt) {
  Open({503, 400});
  ASSERT_NE(View().Size().Width % 4, 0);
  const render::Picture frame = Form().FramePicture();
  QWidget cover;
  cover.setGeometry(window->geometry());
  cover.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&cover));
  dialog.answer = folder / "a picture \xC3\xB6.bmp";
  Entry("DoSavePic").trigger();
  const QImage saved(QString::fromStdString(*dialog.answer));
  ASSERT_EQ(saved.size(), QSize(frame.Width, frame.Height));
  int lit = 0;
  for (int y = 0; y < frame.Height; ++y) {
    for (int x = 0; x < frame.Width; ++x) {
      const std::uint8_t* const rgb = &frame.Rgb[static_cast<std::size_t>(y * frame.Width + x) * 3];
      ASSERT_EQ(saved.pixel(x, y), qRgb(rgb[0], rgb[1], rgb[2])) << x << " " << y;
      lit += rgb[0] > 40;
    }
  }
  EXPECT_GT(lit, frame.Width * frame.Height / 50);
  EXPECT_EQ(dialog.asked[0].DialogTitle, "Save Picture");
  EXPECT_EQ(dialog.asked[0].Flags, 8206);
  EXPECT_EQ(dialog.asked[0].PackagePath, package);
}

TEST_F(MainWindowCommands, APictureIsSavedWholeOrNotAtAll) {
  Open();
  const std::string path = folder / "old.bmp";
  PutFile(path, "old picture");
  const std::size_t files = folder.FileCount();
  dialog.answer = path;
  {
    const FullDisk full(10000);
    Entry("DoSavePic").trigger();
  }
  EXPECT_EQ(GetFile(path), "old picture");
  dialog.answer = path + "/below a file.bmp";
  Entry("DoSavePic").trigger();
  dialog.answer.reset();
  Entry("DoSavePic").trigger();
  EXPECT_EQ(folder.FileCount(), files);
  EXPECT_FALSE(status);
  EXPECT_TRUE(boxes.empty());
}

TEST_F(MainWindowCommands, TheBackgroundTurnsBlackAndWhiteAtOnce) {
  Open();
  EXPECT_EQ(PixelAt(0, 0), QColor(Qt::black));
  Entry("DoWhite").trigger();
  EXPECT_EQ(PixelAt(0, 0), QColor(Qt::white));
  Entry("DoBlack").trigger();
  EXPECT_EQ(PixelAt(0, 0), QColor(Qt::black));
}

TEST_F(MainWindowCommands, PrintsIntoTheChosenPdfOrSaysWhyNot) {
  Open();
  QString said;
  const auto hear = [&said](QMessageBox& box) {
    said = box.text();
    box.accept();
  };
  const std::string path = folder / "a page \xC3\xBC.pdf";
  ChoosePdf(path);
  EXPECT_FALSE(std::filesystem::exists(path));  // setting up prints nothing
  Entry("DoNoScale").trigger();
  EXPECT_EQ(GetFile(path).substr(0, 5), "%PDF-");
  std::filesystem::remove(path);
  Entry("DoFitPage").trigger();
  const std::string printed = GetFile(path);
  EXPECT_EQ(printed.substr(0, 5), "%PDF-");
  {
    const FullDisk full(1000);
    WhenOpen<QMessageBox>(hear);
    Entry("DoFitPage").trigger();
  }
  EXPECT_TRUE(said.contains("File too large")) << said.toStdString();
  EXPECT_EQ(GetFile(path), printed);
  EXPECT_FALSE(status);
}

TEST_F(MainWindowCommands, TheToolkitsOwnDialogIsFilledAndCancelled) {
  PutFile(folder / "other.yax", kOther);
  Open();
  window = std::make_unique<MainWindow>(StartUp{folder / "", '"' + package + '"'}, end);
  window->Load();
  window->show();
  QString filter, title;
  WhenOpen<QFileDialog>([&](QFileDialog& load) {
    title = load.windowTitle();
    filter = load.nameFilters().join(";");
    load.reject();
  });
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(title, "Load YAX File");
  EXPECT_EQ(filter, "YAX files (*.yax);All files (*)");
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), 2000));  // with no window manager to see to it
  EXPECT_EQ(Form().Package().CompW, 4.0F);
  WhenOpen<QFileDialog>([this](QFileDialog& load) {
    // The name without its extension: the dialog brings it.
    load.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(folder / "other"));
    QTest::keyClick(&load, Qt::Key_Return);
  });
  Entry("DoLoadYAX").trigger();
  EXPECT_EQ(Form().Package().CompW, 6.0F);
}

TEST_F(MainWindowCommands, ClosingTheWindowEndsWithStatus0) {
  Open();
  window->close();
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(boxes.empty());
  EXPECT_FALSE(View().MakeCurrent());
}

}  // namespace
}  // namespace shell
