#include "shell/ui/program_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace shell::ui {

namespace {

QPixmap Draw(int side) {
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / 64.0, side / 64.0);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(16, 16, 24));
  painter.drawRoundedRect(QRectF(1, 1, 62, 62), 8, 8);
  painter.setBrush(QColor(0, 128, 128));
  painter.drawRect(QRectF(18, 22, 28, 28));
  painter.setBrush(Qt::white);
  painter.drawRect(QRectF(18, 16, 28, 28));
  for (int turn = 0; turn < 4; ++turn) {
    painter.save();
    painter.translate(32, 32);
    painter.rotate(90 * turn);
    for (const double along : {-9.0, 0.0, 9.0}) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(200, 200, 200));
      painter.drawRect(QRectF(along * 1.9 - 2.5, 23.5, 5, 6));
      painter.setBrush(QColor(0, 0, 200));
      painter.drawRect(QRectF(along - 1.5, turn == 2 ? 11.5 : 8.5, 3, 3));
      QPainterPath wire(QPointF(along, turn == 2 ? 13 : 10));
      wire.quadTo(QPointF(along * 1.2, 22), QPointF(along * 1.9, 26));
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(QColor(255, 210, 0), 1.6));
      painter.drawPath(wire);
    }
    painter.restore();
  }
  return pixmap;
}

}  // namespace

QIcon ProgramIcon() {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128}) icon.addPixmap(Draw(side));
  return icon;
}

}  // namespace shell::ui
