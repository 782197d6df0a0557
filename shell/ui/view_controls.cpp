#include "shell/ui/view_controls.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionButton>
#include <QWheelEvent>

#include "shell/program_end.h"

namespace shell::ui {

BoundScrollBar::BoundScrollBar(navigation::ScrollBar& bar, Qt::Orientation orientation, const QString& name,
                               ProgramEnd& end, QWidget* parent)
    : QScrollBar(orientation, parent) {
  setRange(bar.Min(), bar.Max());
  setSingleStep(1);
  setPageStep(10);
  setValue(bar.Value());
  setFocusPolicy(Qt::NoFocus);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAccessibleName(name);
  bar.Show = [this](std::int16_t value) { setValue(value); };
  connect(this, &QScrollBar::valueChanged, this, [this, &bar, &end](int value) {
    end.Run([&] { isSliderDown() ? bar.Drag(value) : bar.SetValue(value); });
  });
}

void BoundScrollBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

ArrowPicture::ArrowPicture(int index, QWidget* parent) : QPushButton(parent), index_(index) {
  static constexpr const char* kNames[] = {"Camera left", "Camera right", "Camera up", "Camera down"};
  setAccessibleName(kNames[index]);
  setToolTip(kNames[index]);
  setFocusPolicy(Qt::NoFocus);
  const int side = fontMetrics().height() + 10;
  setFixedSize(side, side);
}

void ArrowPicture::paintEvent(QPaintEvent* event) {
  QPushButton::paintEvent(event);
  static constexpr int kAngles[] = {180, 0, 270, 90};
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(rect()).center());
  painter.rotate(kAngles[index_]);
  const double unit = width() / 10.0;
  QPainterPath arrow(QPointF(3.2 * unit, 0.0));
  for (const QPointF& point : {QPointF(0.2, 2.6), QPointF(0.2, 0.9), QPointF(-3.0, 0.9), QPointF(-3.0, -0.9),
                               QPointF(0.2, -0.9), QPointF(0.2, -2.6)})
    arrow.lineTo(point * unit);
  arrow.closeSubpath();
  painter.fillPath(
      arrow, palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
}

DummyBox::DummyBox(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  setAcceptDrops(false);  // the main window handles drops
  setContextMenuPolicy(Qt::NoContextMenu);
  setAccessibleName("Reset view");
  setAccessibleDescription("Reads the package again and goes back to the first view, as the Home key does");
  setToolTip("Reset view (Home)");
  setCursor(Qt::ArrowCursor);
  setFixedSize(fontMetrics().height() + 10, fontMetrics().height() + 10);
}

void DummyBox::mousePressEvent(QMouseEvent* event) {
  QLineEdit::mousePressEvent(event);
  if (event->button() == Qt::LeftButton) Clicked();
}

/// A small house, for the Home key.
void DummyBox::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(rect()).center());
  const double unit = width() / 10.0;
  QPainterPath house(QPointF(0.0, -3.0 * unit));
  for (const QPointF& point :
       {QPointF(3.2, -0.2), QPointF(2.3, -0.2), QPointF(2.3, 2.6), QPointF(0.7, 2.6), QPointF(0.7, 0.6),
        QPointF(-0.7, 0.6), QPointF(-0.7, 2.6), QPointF(-2.3, 2.6), QPointF(-2.3, -0.2), QPointF(-3.2, -0.2)})
    house.lineTo(point * unit);
  house.closeSubpath();
  painter.fillPath(house, palette().color(QPalette::Text));
}

ViewControls::ViewControls(navigation::Navigation& navigation, ProgramEnd& end, QWidget* parent)
    : ScrollPitch(new BoundScrollBar(navigation.ScrollPitch, Qt::Vertical, "Pitch", end, parent)),
      ScrollYaw(new BoundScrollBar(navigation.ScrollYaw, Qt::Horizontal, "Yaw", end, parent)),
      Dummy(new DummyBox(parent)),
      Strip(new QWidget(parent)) {
  auto* const row = new QHBoxLayout(Strip);
  row->setContentsMargins(4, 4, 4, 4);
  row->setSpacing(4);
  AddButtons(navigation, end, *row);
  row->addStretch();
  for (int index = 0; index < 4; ++index) {
    auto* const arrow = new ArrowPicture(index, Strip);
    QObject::connect(arrow, &QPushButton::clicked, Strip,
                     [&navigation, &end, index] { end.Run([&] { navigation.Trans_Click(index); }); });
    row->addWidget(arrow);
  }
  row->addWidget(Dummy);
  navigation.Actions.FocusDummy = [this] { Dummy->setFocus(); };
  Dummy->Clicked = [&navigation, &end] { end.Run([&] { navigation.Dummy_Click(); }); };
}

void ViewControls::AddButtons(navigation::Navigation& navigation, ProgramEnd& end, QHBoxLayout& row) const {
  struct Button {
    const char* Caption;
    const char* Description;
    void (navigation::Navigation::*Click)();
  };
  static constexpr Button kButtons[] = {
      {"In +", "Moves the camera forward", &navigation::Navigation::cmdForward_Click},
      {"Out -", "Moves the camera back", &navigation::Navigation::cmdBack_Click},
      {"< < < < <", "Turns the camera to the left", &navigation::Navigation::cmdLeft_Click},
      {"> > > > >", "Turns the camera to the right", &navigation::Navigation::cmdRight_Click},
      {"U", "Tilts the camera up", &navigation::Navigation::cmdUp_Click},
      {"D", "Tilts the camera down", &navigation::Navigation::cmdDown_Click},
  };
  for (const Button& button : kButtons) {
    auto* const push = new QPushButton(button.Caption, Strip);
    push->setFocusPolicy(Qt::NoFocus);
    push->setAccessibleDescription(button.Description);
    push->setToolTip(button.Description);
    // No wider than the caption, so that all buttons fit into a window of 640 pixels.
    push->setFixedWidth(push->fontMetrics().horizontalAdvance(push->text()) + 24);
    QObject::connect(push, &QPushButton::clicked, Strip,
                     [&navigation, &end, click = button.Click] { end.Run([&] { (navigation.*click)(); }); });
    row.addWidget(push);
  }
}

}  // namespace shell::ui
