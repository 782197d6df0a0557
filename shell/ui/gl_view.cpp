#include "shell/ui/gl_view.h"

#include <QEvent>
#include <QScreen>
#include <QSurfaceFormat>
#include <QWindow>
#include <cmath>

namespace shell::ui {

namespace {

QSurfaceFormat WantedFormat() {
  QSurfaceFormat format;
  format.setRenderableType(QSurfaceFormat::OpenGL);
  format.setProfile(QSurfaceFormat::CompatibilityProfile);
  format.setVersion(2, 1);
  format.setDepthBufferSize(24);
  format.setSamples(0);
  format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
  // Every input event paints at once; waiting for vertical sync would make the input lag.
  format.setSwapInterval(0);
  return format;
}

bool IsUsable(const QSurfaceFormat& format) {
  return format.renderableType() == QSurfaceFormat::OpenGL &&
         format.profile() != QSurfaceFormat::CoreProfile && format.depthBufferSize() > 0;
}

}  // namespace

GlView::GlView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_NativeWindow);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoSystemBackground);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName("Package view");
  setMinimumSize(64, 48);
  winId();

  surface_ = new QWindow(windowHandle());
  surface_->setSurfaceType(QSurface::OpenGLSurface);
  surface_->setFlags(Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
  surface_->setFormat(WantedFormat());
  surface_->installEventFilter(this);
  FitSurface();
  surface_->create();
  surface_->setVisible(true);
  exposures_ = std::make_unique<ExposureWatch>(*surface_);
  // On a screen of another scale the size in pixels changes, though the size in Qt's units may not. Qt
  // updates its layout only after this signal.
  connect(
      windowHandle(), &QWindow::screenChanged, this, [this] { SizeChanged(); }, Qt::QueuedConnection);
}

GlView::~GlView() { GlView::DeleteContext(); }

bool GlView::CreateContext() {
  DeleteContext();
  // A hidden widget gets no resize event until it is shown, and the driver keeps the first size that it is
  // given.
  FitSurface();
  context_ = std::make_unique<QOpenGLContext>();
  context_->setFormat(WantedFormat());
  if (context_->create() && IsUsable(context_->format()) && context_->makeCurrent(surface_)) return true;
  context_.reset();
  return false;
}

bool GlView::MakeCurrent() {
  if (!context_) return false;
  return QOpenGLContext::currentContext() == context_.get() || context_->makeCurrent(surface_);
}

bool GlView::IsShown() const { return surface_->isExposed(); }

void GlView::SwapBuffers() {
  exposures_->FrameFollows();
  context_->swapBuffers(surface_);
}

void GlView::DeleteContext() {
  if (!context_) return;
  context_->doneCurrent();
  context_.reset();
}

render::PixelSize GlView::Size() const {
  const double scale = devicePixelRatioF();
  return {static_cast<int>(std::lround(width() * scale)), static_cast<int>(std::lround(height() * scale))};
}

bool GlView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose && surface_->isExposed() && exposures_->Due()) Exposed();
  return QWidget::eventFilter(watched, event);
}

void GlView::FitSurface() { surface_->setGeometry(QRect(QPoint(0, 0), size())); }

void GlView::SizeChanged() {
  FitSurface();
  Resized();
}

void GlView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  SizeChanged();
}

}  // namespace shell::ui
