#pragma once

#include <QPainter>
#include <QRegion>
#include <QTransform>
#include <optional>

#include "view/line_pixels.h"

namespace brivane {

/// The pixels that a painter paints on.
struct PaintedPixels {
  PixelRows Rows;
  QRegion Part;         ///< what of them may be painted
  QTransform ToPixels;  ///< from the painter's own coordinates; turns nothing
  LineEdge Edge = LineEdge::Stepped;
};

/// The pixels behind a painter, where opaque lines put straight into them are as good as painted:
/// those of a picture in memory with 32 bits a pixel, as every window on the screen has. None
/// behind a printer, and none where the painter clips, turns or blends what it paints.
std::optional<PaintedPixels> PixelsBehind(const QPainter& painter);

}  // namespace brivane
