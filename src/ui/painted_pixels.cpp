#include "ui/painted_pixels.h"

#include <QImage>
#include <QPaintEngine>

namespace brivane {

namespace {

constexpr qsizetype kPixelBytes = sizeof(std::uint32_t);

/// Whether the painter lays opaque ink over what is there, wherever it may paint at all.
bool PaintsOver(const QPainter& painter) {
  return !painter.hasClipping() && painter.opacity() == 1 &&
         painter.compositionMode() == QPainter::CompositionMode_SourceOver &&
         painter.deviceTransform().type() <= QTransform::TxScale;
}

bool HasPixels(const QImage& picture) {
  const QImage::Format format = picture.format();
  return (format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied) &&
         picture.bytesPerLine() % kPixelBytes == 0;
}

}  // namespace

std::optional<PaintedPixels> PixelsBehind(const QPainter& painter) {
  const QPaintEngine* const engine = painter.paintEngine();
  if (engine == nullptr || engine->type() != QPaintEngine::Raster) return std::nullopt;
  auto* const picture = dynamic_cast<QImage*>(engine->paintDevice());
  if (picture == nullptr || !HasPixels(*picture) || !PaintsOver(painter)) return std::nullopt;

  const qsizetype rowLength = picture->bytesPerLine() / kPixelBytes;
  const auto count = static_cast<std::size_t>(rowLength * picture->height());
  const QRegion clip = engine->systemClip();
  return PaintedPixels{
      {{reinterpret_cast<std::uint32_t*>(picture->bits()), count}, static_cast<int>(rowLength)},
      clip.isEmpty() ? QRegion(picture->rect()) : clip & picture->rect(),
      painter.deviceTransform(),
      painter.testRenderHint(QPainter::Antialiasing) ? LineEdge::Smooth : LineEdge::Stepped};
}

}  // namespace brivane
