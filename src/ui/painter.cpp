#include "ui/painter.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "ui/qt_text.h"
#include "view/navigation.h"

namespace brivane {

namespace {

QColor InkOf(const Colour& ink) { return {ink.Red, ink.Green, ink.Blue}; }

QPen PenOf(const Stroke& stroke, double width) {
  QPen pen(InkOf(stroke.Ink), width);
  pen.setCosmetic(true);
  if (stroke.Pen == PenStyle::Dashed) pen.setDashPattern({6, 4});
  return pen;
}

void PaintStroke(QPainter& painter, const Stroke& stroke, const QTransform& toDevice,
                 double penWidth) {
  QPolygonF line(static_cast<qsizetype>(stroke.Points.size()));
  std::transform(stroke.Points.begin(), stroke.Points.end(), line.begin(),
                 [](const PlanePoint& point) { return QPointF(point.x, point.y); });
  painter.setPen(PenOf(stroke, penWidth));
  painter.drawPolyline(toDevice.map(line));  // the whole line at once, a third of one by one
}

/// The font of a text: a size in surface units, or the painter's own.
QFont FontOf(const QFont& own, const DrawnText& text, const QTransform& toDevice) {
  QFont font = own;
  if (text.Size > 0) font.setPixelSize(std::max(1, qRound(text.Size * std::abs(toDevice.m22()))));
  return font;
}

/// Paints a text and returns the width that it takes on the device.
double PaintText(QPainter& painter, const DrawnText& text, QPointF corner) {
  const QFontMetricsF metrics(painter.font(), painter.device());
  const QString words = ToQt(text.Text);
  painter.setPen(InkOf(text.Ink));
  painter.drawText(corner + QPointF(0, metrics.ascent()), words);
  return metrics.horizontalAdvance(words);
}

void PaintTexts(QPainter& painter, const Drawing& drawing, const QTransform& toDevice) {
  const QFont own = painter.font();
  double before = 0;  // width of the texts that this one follows
  for (const DrawnText& text : drawing.Texts) {
    painter.setFont(FontOf(own, text, toDevice));
    const QPointF corner = toDevice.map(QPointF(text.At.x, text.At.y));
    if (!text.Follows) before = 0;
    before += PaintText(painter, text, corner + QPointF(before, 0));
  }
  painter.setFont(own);
}

}  // namespace

QTransform SurfaceToPixels(const QSizeF& pixels) {
  constexpr PlanePoint kOrigin{0, 0};
  constexpr PlanePoint kFar{1000, 1000};
  const PictureSize picture = SizeOfPixels(pixels.width(), pixels.height());
  const PlanePoint origin = FractionAt(picture, kOrigin);
  const PlanePoint far = FractionAt(picture, kFar);
  QTransform toPixels = QTransform::fromScale(pixels.width(), pixels.height());
  toPixels.translate(origin.x, origin.y);
  toPixels.scale((far.x - origin.x) / kFar.x, (far.y - origin.y) / kFar.y);
  return toPixels;
}

void PaintDrawing(QPainter& painter, const Drawing& drawing, const QTransform& toDevice,
                  double penWidth) {
  for (const Stroke& stroke : drawing.Strokes) PaintStroke(painter, stroke, toDevice, penWidth);
  PaintTexts(painter, drawing, toDevice);
}

}  // namespace brivane
