#include "setup/ui/loop_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

namespace setup::ui {

namespace {

struct Look {
  QColor Line, Fill;
  double Width;
  Qt::PenStyle Style = Qt::SolidLine;
};

Look LookOf(PicturePart part) {
  switch (part) {
    case PicturePart::Substrate:
      return {"#4f7a5b", {}, 2.0};
    case PicturePart::Die:
      return {"#5b6f8f", "#c3d0e4", 1.0};
    case PicturePart::StackedDie:
      return {"#5b6f8f", "#dfe7f3", 1.0};
    case PicturePart::Pad:
      return {"#8a6d1d", "#d9b24a", 1.0};
    case PicturePart::BaseWire:
      return {"#b8860b", {}, 2.0};
    case PicturePart::StackWire:
      return {"#b5452c", {}, 2.0};
    case PicturePart::StitchWire:
      return {"#6a4c9c", {}, 1.6, Qt::DashLine};
    case PicturePart::Dimension:
      return {"#707070", {}, 1.0};
  }
  return {};
}

QPolygonF PolygonOf(const PictureShape& shape) {
  QPolygonF polygon;
  for (const PicturePoint& point : shape.Points) polygon.append({double(point.X), double(point.Y)});
  return polygon;
}

void PaintShape(QPainter& painter, const PictureShape& shape) {
  const Look look = LookOf(shape.Part);
  painter.setPen(QPen(look.Line, look.Width, look.Style, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(shape.Filled ? QBrush(look.Fill) : QBrush(Qt::NoBrush));
  if (shape.Filled)
    painter.drawPolygon(PolygonOf(shape));
  else
    painter.drawPolyline(PolygonOf(shape));
}

QAccessibleInterface* Create(const QString&, QObject* object) {
  auto* const view = qobject_cast<LoopView*>(object);
  return view != nullptr ? new QAccessibleWidget(view, QAccessible::Graphic) : nullptr;
}

/// Keeps a label inside the picture and paints a light background, so that no line crosses its letters.
void PaintLabel(QPainter& painter, const PictureLabel& label, const QSize& size) {
  const QString text = QString::fromStdString(label.Text);
  QRectF box = QFontMetricsF(painter.font()).boundingRect(text).adjusted(-3.0, -1.0, 3.0, 1.0);
  box.moveCenter({double(label.Centre.X), double(label.Centre.Y)});
  box.moveLeft(std::clamp(box.left(), 2.0, std::max(2.0, size.width() - box.width() - 2.0)));
  box.moveTop(std::clamp(box.top(), 2.0, std::max(2.0, size.height() - box.height() - 2.0)));
  painter.fillRect(box, QColor(255, 255, 255, 200));
  painter.setPen(Qt::black);
  painter.drawText(box, Qt::AlignCenter, text);
}

}  // namespace

void InstallAccessibleLoopView() { QAccessible::installFactory(Create); }

LoopView::LoopView(const SetupForm& form) : form_(form) {
  setAccessibleName("Loop side view");
  setAccessibleDescription("One wire of each kind from the side, to scale, with the loops that are set");
}

void LoopView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), Qt::white);
  const LoopPicture picture = form_.Picture(static_cast<float>(width()), static_cast<float>(height()));
  for (const PictureShape& shape : picture.Shapes) PaintShape(painter, shape);
  for (const PictureLabel& label : picture.Labels) PaintLabel(painter, label, size());
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QColor("#a0a0a0"));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

}  // namespace setup::ui
