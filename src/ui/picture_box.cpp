#include "ui/picture_box.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

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

}  // namespace brivane
