/// The view of the main window: a plain widget that contains one OpenGL window.
#pragma once

#include <QOpenGLContext>
#include <QWidget>
#include <memory>

#include "model/callback.h"
#include "render/gl/gl_surface.h"
#include "shell/ui/exposure_watch.h"

namespace shell::ui {

/// The GL window inside lets all input through to the widget, so events arrive here as in any other widget.
class GlView final : public QWidget, public render::gl::GlSurface {
  Q_OBJECT

 public:
  explicit GlView(QWidget* parent);
  ~GlView() override;

  /// Called when the view was uncovered and must be drawn again.
  model::Callback<> Exposed;
  /// Called when the view may have a new size in pixels.
  model::Callback<> Resized;

  /// Called when assistive technology asks for the command menu.
  model::Callback<> MenuAsked;

  bool CreateContext() override;
  bool MakeCurrent() override;
  bool IsShown() const override;
  void SwapBuffers() override;
  void DeleteContext() override;
  render::PixelSize Size() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent*) override {}
  QPaintEngine* paintEngine() const override { return nullptr; }

 private:
  void FitSurface();
  void SizeChanged();

  QWindow* surface_;  // owned by the widget's own window
  std::unique_ptr<ExposureWatch> exposures_;
  std::unique_ptr<QOpenGLContext> context_;
};

}  // namespace shell::ui
