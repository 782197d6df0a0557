#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPageSize>
#include <QPointer>
#include <QTextBrowser>
#include <QTimer>
#include <algorithm>

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
  QPointer<QTimer> WhenOpen(std::function<void(Window&)> act) {
    auto* const timer = new QTimer(window.get());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
      auto* const open = qobject_cast<Window*>(QApplication::activeModalWidget());
      if (open == nullptr) return;
      timer->deleteLater();
      act(*open);
    });
    timer->start(10);
    return timer;
  }

  /// Printer Setup: this PDF file, and the paper that `choose` sets.
  void ChoosePdf(
      const std::string& path, std::function<void(QDialog&)> choose = [](QDialog&) {}) {
    WhenOpen<QDialog>([path, choose](QDialog& setup) {
      EXPECT_EQ(setup.windowTitle(), "Printer Setup");
      Find<QLineEdit>(setup, "PDF file").setText(QFile::decodeName(path.c_str()));
      choose(setup);
      setup.accept();
    });
    Entry("DoPrinterSetup").trigger();
  }
  static QComboBox& Choice(const QDialog& setup, const char* label) {
    return *qobject_cast<QComboBox*>(Find<QLabel>(setup, label).buddy());
  }
  /// Prints; returns the text of the box that opens, which it answers with Return.
  std::string Print(const char* entry) {
    std::string said;
    const QPointer<QTimer> user = WhenOpen<QMessageBox>([&](QMessageBox& box) {
      said = box.text().toStdString();
      QTest::keyClick(&box, Qt::Key_Return);
    });
    Entry(entry).trigger();
    delete user;
    return said;
  }

  QImage Frame() {
    const render::Picture frame = Form().FramePicture();
    const QImage image(frame.Rgb.data(), frame.Width, frame.Height, 3 * frame.Width, QImage::Format_RGB888);
    return image.convertToFormat(QImage::Format_RGB32);
  }
};

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
  // The file is gone now: an untrapped fault.
  std::filesystem::remove(folder / "YaxViewHelp.rtf");
  Entry("DoViewHelp").trigger();
  EXPECT_EQ(status, 1);
  EXPECT_EQ(boxes, std::vector<std::string>{
                       "3D YAX Viewer: Run-time error: No such file or directory (YaxViewHelp.rtf)"});
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

TEST_F(MainWindowCommands, ALoadTrapsFaultsAndANewSizeReportsThem) {
  Open();
  dialog.answer = PutFile(folder / "bad.yax", kFaulty);
  Entry("DoLoadYAX").trigger();
  EXPECT_FALSE(status);
  Key(Qt::Key_U);
  for (const auto show : {&QWidget::hide, &QWidget::showMinimized, &QWidget::showNormal}) {
    (window.get()->*show)();
    QApplication::processEvents();
  }
  EXPECT_EQ(Changes(), "look 10") << "no load, which would reset the camera";
  PutFile(package, kFaulty);
  window->resize(520, 420);
  EXPECT_TRUE(QTest::qWaitFor([this] { return status.has_value(); }, 1000));
  EXPECT_EQ(status, 1);
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
  const std::size_t files = folder.FileCount();
  for (const auto& answer :
       {std::optional(*dialog.answer + "/below a file.bmp"), std::optional<std::string>()}) {
    dialog.answer = answer;
    Entry("DoSavePic").trigger();
  }
  EXPECT_EQ(folder.FileCount(), files);
  EXPECT_FALSE(status) << "faults are trapped";
}

TEST_F(MainWindowCommands, PrintsIntoTheChosenPdfOrSaysWhyNot) {
  Open();
  EXPECT_EQ(Print("DoNoScale").substr(0, 20), "There is no printer.");
  const std::string path = PutFile(folder / "a page \xC3\xBC.pdf", "old");
  ChoosePdf(path, [](QDialog& setup) {
    Choice(setup, "Paper:").setCurrentText(QPageSize::name(QPageSize::Letter));
    Choice(setup, "Orientation:").setCurrentText("Landscape");
  });
  EXPECT_EQ(GetFile(path), "old") << "setting up prints nothing";
  EXPECT_NE(Print("DoNoScale").find("already exists"), std::string::npos);
  EXPECT_EQ(GetFile(path), "old") << "No is the default answer";
  std::filesystem::remove(path);
  EXPECT_EQ(Print("DoNoScale"), "");
  // Opened again it shows the last choice, which stays.
  ChoosePdf(path, [](QDialog& setup) {
    EXPECT_EQ(Choice(setup, "Paper:").currentText(), QPageSize::name(QPageSize::Letter));
  });
  EXPECT_EQ(Print("DoFitPage"), "") << "this run has written the file itself";
  const std::string pdf = GetFile(path);
  // Letter is 612 x 792 points. A lossy picture would be a DCT.
  EXPECT_NE(pdf.find("/MediaBox [0 0 792.0"), std::string::npos);
  EXPECT_EQ(pdf.find("DCTDecode"), std::string::npos);
  ChoosePdf(folder / "none/a.pdf");
  EXPECT_NE(Print("DoFitPage").find("No such file or directory"), std::string::npos);
  EXPECT_FALSE(status);
}

TEST_F(MainWindowCommands, ADroppedPackageIsLoadedAndNothingElseIs) {
  Open();
  const QString other = QString::fromStdString(PutFile(folder / "other \xC3\xA9.YAX", kOther));
  const QString text = QString::fromStdString(PutFile(folder / "other.txt", kOther));
  const QString none = QString::fromStdString(folder / "none.yax");
  const auto dropped = [this](const QStringList& files) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& file : files) urls.append(QUrl::fromLocalFile(file));
    data.setUrls(urls);
    QDragEnterEvent enter({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QApplication::sendEvent(window.get(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the file stays";
    return true;
  };
  for (const QStringList& files : {QStringList{text}, {none}, {other, other}, {}})
    EXPECT_FALSE(dropped(files)) << files.join(" ").toStdString();
  EXPECT_EQ(Form().Package().CompW, 4.0F);
  Entry("DoWireList").trigger();
  EXPECT_TRUE(dropped({other}));
  EXPECT_FALSE(Shown("Wire List"));
  EXPECT_EQ(Form().Package().CompW, 6.0F);
  PutFile(other.toStdString(), kFaulty);
  EXPECT_TRUE(dropped({other}));
  EXPECT_TRUE(boxes.empty()) << "faults are trapped";
}

}  // namespace
}  // namespace shell
