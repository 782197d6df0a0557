/// The controls along the view's edges: two scroll bars, six buttons, four arrows and the Dummy box.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "model/callback.h"
#include "shell/navigation/navigation.h"

class QHBoxLayout;

namespace shell {
class ProgramEnd;
}  // namespace shell

namespace shell::ui {

/// A scroll bar that shows a ScrollBar and passes user input to it. It takes neither keys nor the wheel,
/// which move the camera.
class BoundScrollBar final : public QScrollBar {
 public:
  BoundScrollBar(navigation::ScrollBar& bar, Qt::Orientation orientation, const QString& name,
                 ProgramEnd& end, QWidget* parent);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

/// One of the four small arrow pictures.
class ArrowPicture final : public QPushButton {
 public:
  /// `index` as Trans_Click takes it: 0 left, 1 right, 2 up, 3 down.
  ArrowPicture(int index, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int index_;
};

/// The Dummy box: gets the focus after a click on an arrow picture; a click on it resets the view.
class DummyBox final : public QLineEdit {
  Q_OBJECT

 public:
  explicit DummyBox(QWidget* parent);
  model::Callback<> Clicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

/// All controls around the view.
class ViewControls {
 public:
  ViewControls(navigation::Navigation& navigation, ProgramEnd& end, QWidget* parent);
  ViewControls(const ViewControls&) = delete;
  ViewControls& operator=(const ViewControls&) = delete;

  BoundScrollBar* ScrollPitch;
  BoundScrollBar* ScrollYaw;
  DummyBox* Dummy;
  QWidget* Strip;  ///< the buttons and arrows

 private:
  void AddButtons(navigation::Navigation& navigation, ProgramEnd& end, QHBoxLayout& row) const;
};

}  // namespace shell::ui
