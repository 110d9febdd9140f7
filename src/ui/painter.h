#pragma once

#include <QPainter>
#include <QSizeF>
#include <QTransform>

#include "view/drawing.h"

namespace brivane {

/// Where the surface units of a picture of so many logical pixels land.
QTransform SurfaceToPixels(const QSizeF& pixels);

/// Paints the drawing, its points sent through the transform. Strokes are as wide as told, in
/// pixels or dots; texts are upright in the painter's font, their top left corner on their point.
void PaintDrawing(QPainter& painter, const Drawing& drawing, const QTransform& toDevice,
                  double penWidth = 1);

}  // namespace brivane
