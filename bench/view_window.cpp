// Drives the viewer's window: bench_view_window PACKAGE takes these orders: "frames N" paints N frames as an
// exposure of the view does, "step N" makes the view N pixels wide as a drag of the window's edge does,
// "select N" selects all wires in the wire list. These answer with a number: "lists N" (lists that the last
// load built), "wires N" (all wires), "uncovered N" (frames that the last order painted because of an
// exposure), "picture N" (checksum of the view's pixels), "memory N" (resident kilobytes).
#include <GL/gl.h>

#include <QAction>
#include <QApplication>
#include <QLayout>
#include <QListView>
#include <QMenu>
#include <QWindow>
#include <string>

#include "bench/orders.h"
#include "bench/stopwatch.h"
#include "bench/x_window.h"
#include "shell/ui/gl_view.h"
#include "shell/ui/main_window.h"

namespace {

class ViewWindow {
 public:
  explicit ViewWindow(const std::string& path)
      : window_(shell::StartUp{QCoreApplication::applicationDirPath().toStdString(), '"' + path + '"'}, end_),
        view_(*window_.findChild<shell::ui::GlView*>()) {
    display_ = qApp->nativeInterface<QNativeInterface::QX11Application>()->display();
    outside_ = bench::OpenDisplay();
    window_.winId();
    window_.layout()->activate();
    window_.move(0, 0);
    window_.resize(window_.size() - view_.size() + QSize(1280, 960));
    window_.Load();
    view_.Exposed = [this, paint = view_.Exposed] {
      ++uncovered_;
      paint();
    };
    window_.show();
    Settle();
  }

  double Do(const std::string& order, int count) {
    if (order == "picture") return bench::PictureSum(display_, view_.winId(), view_.width(), view_.height());
    if (order == "memory") return double(bench::Memory("VmRSS"));
    if (order == "lists") return Lists();
    if (order == "uncovered") return uncovered_;
    if (order == "wires") return double(window_.Form().Package().WireNames.Count());
    if (order == "select") PrepareSelection();
    uncovered_ = 0;
    const double start = bench::Seconds();
    if (order == "frames") {
      for (int i = 0; i < count; ++i) view_.Exposed();
    } else if (order == "step") {
      StepTo(count);
    } else if (order == "select") {
      wires_->selectAll();
    }
    Settle();
    return bench::Seconds() - start;
  }

 private:
  /// Returns once this program and the X server have handled all events and requests.
  void Settle() {
    for (int i = 0; i < 2; ++i) {
      QApplication::processEvents();
      QApplication::sendPostedEvents();
      glFinish();
      bench::Sync(display_);
    }
    QApplication::processEvents();
  }

  /// Changes the size from another client, as a window manager does.
  void StepTo(int viewWidth) {
    const int width = window_.width() - view_.width() + viewWidth;
    bench::ResizeWindow(outside_, window_.winId(), width, window_.height());
    while (view_.width() != viewWidth) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  /// List numbers start at 1 in every context.
  static double Lists() {
    GLuint name = 1;
    while (glIsList(name)) ++name;
    return name - 1;
  }

  void PrepareSelection() {
    if (wires_ == nullptr) {
      window_.findChild<QAction*>("DoWireList")->trigger();
      for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->windowTitle() != "Wire List") continue;
        widget->move(2850, 0);
        wires_ = widget->findChild<QListView*>();
      }
    }
    wires_->clearSelection();
    Settle();
  }

  shell::ProgramEnd end_;
  shell::ui::MainWindow window_;
  shell::ui::GlView& view_;
  QListView* wires_ = nullptr;
  int uncovered_ = 0;
  _XDisplay* display_ = nullptr;
  _XDisplay* outside_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) return 2;
  ViewWindow window(argv[1]);
  bench::ObeyOrders([&](const std::string& order, int count) { return window.Do(order, count); });
}
