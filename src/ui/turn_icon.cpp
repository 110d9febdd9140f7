#include "ui/turn_icon.h"

#include <QPainter>

namespace brivane {

TurnIcon::TurnIcon(Qt::Orientation axis, QWidget* parent) : QWidget(parent), axis_(axis) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TurnIcon::sizeHint() const { return {28, 28}; }

void TurnIcon::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect().center() + QPointF(0.5, 0.5));
  // Drawn for the upright axis, laid down for the level one.
  if (axis_ == Qt::Horizontal) painter.rotate(-90);
  const QColor ink = palette().color(QPalette::WindowText);
  painter.setPen(QPen(ink, 1, Qt::DashLine));
  painter.drawLine(QPointF(0, -12), QPointF(0, 12));
  painter.setPen(QPen(ink, 1.6));
  const QRectF ring(-10, -4, 20, 8);
  painter.drawArc(ring, 130 * 16, 280 * 16);
  painter.setBrush(ink);
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(QPolygonF({{2, -6.5}, {8.5, -3.5}, {2, -0.5}}));
}

}  // namespace brivane
