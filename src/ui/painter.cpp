#include "ui/painter.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <vector>

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

/// Paints the polylines, each sent whole through the transform, which turns nothing.
void PaintStrokes(QPainter& painter, const std::vector<Stroke>& strokes, const QTransform& toDevice,
                  double penWidth) {
  const double scaleX = toDevice.m11();
  const double scaleY = toDevice.m22();
  const QPointF origin(toDevice.dx(), toDevice.dy());
  std::vector<QPointF> line;
  const Stroke* before = nullptr;
  for (const Stroke& stroke : strokes) {
    if (before == nullptr || !(stroke.Ink == before->Ink) || stroke.Pen != before->Pen)
      painter.setPen(PenOf(stroke, penWidth));
    before = &stroke;
    line.resize(stroke.Points.size());
    std::transform(stroke.Points.begin(), stroke.Points.end(), line.begin(),
                   [&](const PlanePoint& point) {
                     return QPointF(point.x * scaleX + origin.x(), point.y * scaleY + origin.y());
                   });
    painter.drawPolyline(line.data(), static_cast<int>(line.size()));
  }
}

/// The font of a text: a size in surface units, or the painter's own.
QFont FontOf(const QFont& own, const DrawnText& text, const QTransform& toDevice) {
  QFont font = own;
  if (text.Size > 0) font.setPixelSize(std::max(1, qRound(text.Size * std::abs(toDevice.m22()))));
  return font;
}

/// Paints a text; gives the width that it takes on the device, where that is asked for.
double PaintText(QPainter& painter, const DrawnText& text, QPointF corner, bool isMeasured) {
  const QFontMetricsF metrics(painter.font(), painter.device());
  const QString words = ToQt(text.Text);
  painter.setPen(InkOf(text.Ink));
  painter.drawText(corner + QPointF(0, metrics.ascent()), words);
  return isMeasured ? metrics.horizontalAdvance(words) : 0;
}

void PaintTexts(QPainter& painter, const std::vector<DrawnText>& texts,
                const QTransform& toDevice) {
  const QFont own = painter.font();
  double before = 0;  // width of the texts that this one follows
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const DrawnText& text = texts[i];
    painter.setFont(FontOf(own, text, toDevice));
    const QPointF corner = toDevice.map(QPointF(text.At.x, text.At.y));
    if (!text.Follows) before = 0;
    const bool isFollowed = i + 1 < texts.size() && texts[i + 1].Follows;
    before += PaintText(painter, text, corner + QPointF(before, 0), isFollowed);
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
  PaintStrokes(painter, drawing.Strokes, toDevice, penWidth);
  PaintTexts(painter, drawing.Texts, toDevice);
}

}  // namespace brivane
