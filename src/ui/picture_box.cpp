#include "ui/picture_box.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <map>

#include "ui/painter.h"
#include "view/navigation.h"

namespace brivane {

namespace {

constexpr double kWheelUnitsPerNotch = 120;

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
  setObjectName("Picture1");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setCursor(Qt::CrossCursor);
}

void PictureBox::Show(Drawing drawing) {
  drawing_ = std::move(drawing);
  update();
  if (!Describe || !QAccessible::isActive()) return;
  QAccessibleEvent described(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&described);
}

PictureSize PictureBox::Size() const { return SizeOfPixels(width(), height()); }

PlanePoint PictureBox::PointAt(QPointF pixel) const {
  return SurfacePointAt(Size(), pixel.x() / width(), pixel.y() / height());
}

QPointF PictureBox::PixelAt(PlanePoint point) const {
  const PlanePoint place = FractionAt(Size(), point);
  return {place.x * width(), place.y * height()};
}

void PictureBox::paintEvent(QPaintEvent*) {
  ++paintCount_;
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.setRenderHint(QPainter::Antialiasing);
  // A pen of whole device pixels: one that is not takes ten times as long.
  const double pen = std::max(1.0, std::floor(devicePixelRatioF()));
  PaintDrawing(painter, drawing_, SurfaceToPixels(size()), pen);
  PaintRubberBand(painter);
  if (hasFocus()) PaintFocus(painter);
}

void PictureBox::PaintFocus(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void PictureBox::PaintRubberBand(QPainter& painter) const {
  if (dragButton_ == Qt::NoButton || dragStart_ == dragEnd_) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
  painter.setBrush(Qt::NoBrush);
  if (dragButton_ == Qt::RightButton) {
    painter.setPen(Qt::magenta);
    painter.drawLine(dragStart_, dragEnd_);
    return;
  }
  const QRectF band = QRectF(dragStart_, dragEnd_).normalized();
  painter.setPen(Qt::green);
  painter.drawRect(band);
  const QPointF middle = band.center();
  const QPointF across(band.width() / 4, 0);
  const QPointF up(0, band.height() / 4);
  painter.setPen(Qt::magenta);
  painter.drawLine(middle - across, middle + across);
  painter.drawLine(middle - up, middle + up);
}

void PictureBox::resizeEvent(QResizeEvent*) {
  EndDrag();
  if (OnResize) OnResize();
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
  const bool drags = event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
  if (!drags || dragButton_ != Qt::NoButton) return;
  dragButton_ = event->button();
  dragStart_ = dragEnd_ = event->position();
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
  if (dragButton_ == Qt::NoButton) return;
  dragEnd_ = event->position();
  update();
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != dragButton_ || dragButton_ == Qt::NoButton) return;
  const auto& gesture = dragButton_ == Qt::RightButton ? OnPan : OnZoom;
  const PlanePoint from = PointAt(dragStart_);
  const PlanePoint to = PointAt(event->position());
  EndDrag();
  if (gesture) gesture(from, to);
}

void PictureBox::EndDrag() {
  dragButton_ = Qt::NoButton;
  update();
}

void PictureBox::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / kWheelUnitsPerNotch;
  if (notches != 0 && OnWheel) OnWheel(PointAt(event->position()), notches);
  event->accept();
}

/// An arrow looks further that way: what is shown moves the other way.
bool PictureBox::MoveByKey(int key) {
  constexpr double kStep = 0.1;  // of the picture
  const QPointF across(kStep * width(), 0);
  const QPointF down(0, kStep * height());
  const std::map<int, QPointF> moves = {
      {Qt::Key_Left, across}, {Qt::Key_Right, -across}, {Qt::Key_Up, down}, {Qt::Key_Down, -down}};
  const auto move = moves.find(key);
  if (move == moves.end() || !OnPan) return false;
  OnPan(PointAt({0, 0}), PointAt(move->second));
  return true;
}

bool PictureBox::ZoomByKey(int key) {
  const bool closer = key == Qt::Key_Plus || key == Qt::Key_Equal;
  if (!(closer || key == Qt::Key_Minus) || !OnWheel) return false;
  OnWheel(PointAt(QRectF(rect()).center()), closer ? 1 : -1);
  return true;
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
  const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (plain && (MoveByKey(event->key()) || ZoomByKey(event->key()))) return;
  QWidget::keyPressEvent(event);
}

}  // namespace brivane
