#include "view/drawing.h"

#include <cmath>
#include <utility>

namespace brivane {

namespace {

bool IsFinite(const PlanePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

}  // namespace

void AddStroke(Drawing& drawing, Stroke stroke) {
  bool hasExtent = false;
  for (const PlanePoint& point : stroke.Points) {
    if (!IsFinite(point)) return;
    hasExtent = hasExtent || point != stroke.Points.front();
  }
  if (hasExtent) drawing.Strokes.push_back(std::move(stroke));
}

void AddText(Drawing& drawing, DrawnText text) {
  if (IsFinite(text.At) && !text.Text.empty()) drawing.Texts.push_back(std::move(text));
}

}  // namespace brivane
