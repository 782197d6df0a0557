// Uses the viewer for as long as a long day: soak PACKAGE [SHARE]
// Repeats each kind of use in kUses as often as the table says, times SHARE (default 1.0), with the wire list
// open. Within each kind, resident memory may grow by 5 % after the first tenth. The last picture must equal
// that of a fresh start in the same state.
#include <unistd.h>
#include <QAction>
#include <QApplication>
#include <QListView>
#include <QTest>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "shell/ui/gl_view.h"
#include "shell/ui/main_window.h"
#include "tests/setup/answering_dialog.h"

namespace {

constexpr double kFlat = 1.05;
constexpr QSize kSize(420, 340);

double ResidentKilobytes() {
  std::ifstream file("/proc/self/statm");
  double all = 0.0, resident = 0.0;
  file >> all >> resident;
  return resident * double(sysconf(_SC_PAGESIZE)) / 1024.0;
}

class Viewer {
 public:
  explicit Viewer(const std::string& path)
      : window_(shell::StartUp{QCoreApplication::applicationDirPath().toStdString(), '"' + path + '"'}, end_,
                &dialog_) {
    dialog_.answer = path;
    window_.resize(kSize);
    window_.Load();
    window_.show();
    if (!QTest::qWaitForWindowExposed(&window_)) std::exit(2);
    OpenWireList();
  }

  void MoveMouse(int count) {
    const QPoint middle = View().rect().center();
    Mouse(QTest::MousePress, middle, Qt::LeftButton);
    for (int i = 0; i < count; ++i)
      Mouse(QTest::MouseMove, middle + QPoint(int(60 * std::sin(i * 0.05)), int(40 * std::cos(i * 0.03))));
    Mouse(QTest::MouseRelease, middle, Qt::LeftButton);
  }

  void SelectWires(int count) {
    const int rows = wires_->model()->rowCount();
    for (int i = 0; i < count; ++i) {
      const QModelIndex entry = wires_->model()->index(i * 7 % rows, 0);
      wires_->scrollTo(entry);
      QTest::mouseClick(wires_->viewport(), Qt::LeftButton, {}, wires_->visualRect(entry).center());
      Settle();
    }
  }

  void SwitchBackground(int count) {
    for (int i = 0; i < count; ++i) Choose(i % 2 == 0 ? "DoWhite" : "DoBlack");
  }

  void Resize(int count) {
    for (int i = 0; i < count; ++i) {
      window_.resize(kSize + QSize(i % 9, i % 5));
      Settle();
    }
    window_.resize(kSize);
    Settle();
  }

  /// Loads from the menu and with Home in turn. A load from the menu closes the wire list.
  void Load(int count) {
    for (int i = 0; i < count; ++i) {
      i % 2 == 0 ? Choose("DoLoadYAX") : QTest::keyClick(window_.windowHandle(), Qt::Key_Home);
      Settle();
    }
    OpenWireList();
  }

  /// Shows some wires on white from one side, whatever was shown before.
  render::Picture KnownState() {
    QTest::keyClick(window_.windowHandle(), Qt::Key_Home);
    Choose("DoWhite");
    SelectWires(3);
    MoveMouse(25);
    return window_.Form().FramePicture();
  }

 private:
  shell::ui::GlView& View() { return *window_.findChild<shell::ui::GlView*>(); }

  void Mouse(QTest::MouseAction action, QPoint at, Qt::MouseButton button = Qt::NoButton) {
    QTest::mouseEvent(action, View().windowHandle(), button, {}, at);
  }

  void Choose(const char* command) {
    window_.findChild<QAction*>(command)->trigger();
    Settle();
  }

  void OpenWireList() {
    Choose("DoWireList");
    for (QWidget* const other : QApplication::topLevelWidgets())
      if (other->windowTitle() == "Wire List") wires_ = other->findChild<QListView*>();
  }

  static void Settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents();
  }

  shell::ProgramEnd end_;
  setup::AnsweringDialog dialog_;  ///< answers each question with the one package
  shell::ui::MainWindow window_;
  QListView* wires_ = nullptr;
};

struct Use {
  const char* Name;
  int Times;
  void (Viewer::*Do)(int);
};

constexpr Use kUses[] = {
    {"mouse moves", 10000, &Viewer::MoveMouse},
    {"selections", 1000, &Viewer::SelectWires},
    {"background switches", 1000, &Viewer::SwitchBackground},
    {"resizes", 500, &Viewer::Resize},
    {"loads", 200, &Viewer::Load},
};

bool StaysFlat(Viewer& viewer, const Use& use, double share) {
  const int all = int(use.Times * share);
  (viewer.*use.Do)(all / 10);
  const double early = ResidentKilobytes();
  (viewer.*use.Do)(all - all / 10);
  const double growth = ResidentKilobytes() / early;
  std::printf("%6d %-20s memory x %.3f\n", all, use.Name, growth);
  return growth <= kFlat;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  application.setQuitOnLastWindowClosed(false);
  if (argc < 2) return 2;
  const double share = argc > 2 ? std::atof(argv[2]) : 1.0;
  const render::Picture fresh = std::make_unique<Viewer>(argv[1])->KnownState();
  Viewer viewer(argv[1]);
  bool good = true;
  for (const Use& use : kUses) good = StaysFlat(viewer, use, share) && good;
  const render::Picture late = viewer.KnownState();
  const bool same = late.Width == fresh.Width && late.Height == fresh.Height && late.Rgb == fresh.Rgb;
  std::printf("the picture %s that of a fresh start\n", same ? "is" : "is NOT");
  return good && same ? 0 : 1;
}
