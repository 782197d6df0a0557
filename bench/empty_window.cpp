// The yardstick for the program's start: bench_empty_window shows an empty Qt window of the viewer's size,
// with the same context in a child window, and clears it. bench_empty_window PACKAGE adds the work that every
// start with a package must do: the bare pass, the bare emission and one frame.
#include <GL/gl.h>

#include <QApplication>
#include <QOpenGLContext>
#include <QSurfaceFormat>
#include <QWidget>
#include <QWindow>
#include <optional>

#include "bench/emission.h"
#include "bench/first_frame.h"
#include "bench/package_scene.h"
#include "render/gl/frame.h"

namespace {

// About the size of the view in the viewer's first window.
constexpr int kWidth = 1008;
constexpr int kHeight = 744;

QSurfaceFormat Format() {
  QSurfaceFormat format;
  format.setRenderableType(QSurfaceFormat::OpenGL);
  format.setProfile(QSurfaceFormat::CompatibilityProfile);
  format.setVersion(2, 1);
  format.setDepthBufferSize(24);
  format.setSamples(0);
  format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
  format.setSwapInterval(0);
  return format;
}

class GlWindow final : public QWindow {
 public:
  GlWindow(QWindow* parent, const char* package) : QWindow(parent) {
    setSurfaceType(QSurface::OpenGLSurface);
    setFlags(Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setFormat(Format());
    create();
    context_.setFormat(Format());
    context_.create();
    context_.makeCurrent(this);
    if (package != nullptr) Build(package);
    setVisible(true);
  }

 protected:
  void exposeEvent(QExposeEvent*) override {
    if (!isExposed()) return;
    if (emission_) {
      bench::FirstFrame(emission_->List(), depth_);
    } else {
      glClearColor(1.0F, 1.0F, 1.0F, 0.0F);
      glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }
    context_.swapBuffers(this);
  }

 private:
  /// To record the calls it reads the package, which makes the yardstick slightly slower than necessary.
  void Build(const char* path) {
    bench::PackageScene opened(path);
    emission_.emplace(opened.Inputs());
    depth_ = opened.package.CompW;
    render::gl::SetUpView({kWidth, kHeight}, opened.appearance);
    emission_->BuildList();
  }

  std::optional<bench::Emission> emission_;
  float depth_ = 0.0F;
  QOpenGLContext context_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.resize(1024, 800);
  window.winId();
  GlWindow view(window.windowHandle(), argc > 1 ? argv[1] : nullptr);
  view.setGeometry(0, 0, kWidth, kHeight);
  window.show();
  return QApplication::exec();
}
