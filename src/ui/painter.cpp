#include "ui/painter.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "ui/painted_pixels.h"
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

std::uint32_t PixelOf(const Colour& ink) { return InkOf(ink).rgb(); }

/// The points sent through the transform, which turns nothing, into a list that all strokes share.
template <typename Point>
void SendThrough(const QTransform& transform, const std::vector<PlanePoint>& points,
                 std::vector<Point>& sent) {
  const double scaleX = transform.m11();
  const double scaleY = transform.m22();
  const PlanePoint origin{transform.dx(), transform.dy()};
  sent.resize(points.size());
  std::transform(points.begin(), points.end(), sent.begin(), [&](const PlanePoint& point) {
    return Point{point.x * scaleX + origin.x, point.y * scaleY + origin.y};
  });
}

/// Paints with the toolkit's pens, on whatever there is.
class ToolkitPen {
 public:
  ToolkitPen(QPainter& painter, const QTransform& toDevice, double width)
      : painter_(painter), toDevice_(toDevice), width_(width) {}

  void Paint(const Stroke& stroke) {
    if (before_ == nullptr || !(stroke.Ink == before_->Ink) || stroke.Pen != before_->Pen)
      painter_.setPen(PenOf(stroke, width_));
    before_ = &stroke;
    SendThrough(toDevice_, stroke.Points, line_);
    painter_.drawPolyline(line_.data(), static_cast<int>(line_.size()));
  }

 private:
  QPainter& painter_;
  const QTransform& toDevice_;
  double width_;
  std::vector<QPointF> line_;
  const Stroke* before_ = nullptr;
};

/// Puts solid lines one pixel wide straight into the pixels.
class PixelPen {
 public:
  PixelPen(const PaintedPixels& pixels, const QTransform& toDevice)
      : pixels_(pixels), toPixels_(toDevice * pixels.ToPixels) {}

  void Paint(const Stroke& stroke) {
    SendThrough(toPixels_, stroke.Points, line_);
    for (const QRect& part : pixels_.Part)
      PutLine(pixels_.Rows,
              {part.left(), part.top(), part.left() + part.width(), part.top() + part.height()},
              line_, PixelOf(stroke.Ink), pixels_.Edge);
  }

 private:
  const PaintedPixels& pixels_;
  QTransform toPixels_;
  std::vector<PlanePoint> line_;
};

void PaintStrokes(QPainter& painter, const std::vector<Stroke>& strokes, const QTransform& toDevice,
                  double penWidth) {
  ToolkitPen toolkitPen(painter, toDevice, penWidth);
  const std::optional<PaintedPixels> pixels = PixelsBehind(painter);
  std::optional<PixelPen> pixelPen;
  if (pixels && penWidth == 1) pixelPen.emplace(*pixels, toDevice);
  for (const Stroke& stroke : strokes) {
    if (pixelPen && stroke.Pen == PenStyle::Solid)
      pixelPen->Paint(stroke);
    else
      toolkitPen.Paint(stroke);
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
