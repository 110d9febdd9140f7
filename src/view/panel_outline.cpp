#include "view/panel_outline.h"

#include <algorithm>
#include <cmath>

#include "model/panel_walk.h"

namespace brivane {
namespace {

bool IsFinite(const PlanePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

void AppendStretch(std::vector<PlanePoint>& points, const DevelopedPanels& panels, int panel,
                   const PanelStretch& stretch) {
  WalkStretch(panels, panel, stretch, [&](double x, double y) { points.push_back({x, y}); });
}

}  // namespace

std::vector<PlanePoint> PanelOutline(const DevelopedPanels& panels, int panel) {
  std::vector<PlanePoint> outline;
  outline.reserve(CountOf(kPanelOutline));
  for (const PanelStretch& stretch : kPanelOutline) AppendStretch(outline, panels, panel, stretch);

  bool hasExtent = false;
  for (const PlanePoint& point : outline) {
    if (!IsFinite(point)) return {};
    hasExtent = hasExtent || point != outline.front();
  }
  if (!hasExtent) outline.clear();
  return outline;
}

std::vector<PlanePoint> PanelGuide(const Sail& sail, int panel) {
  std::vector<PlanePoint> guide;
  if (panel >= sail.Definition.PanelCount - 1) return guide;
  guide.reserve(kGuideLine.Count());
  AppendStretch(guide, sail.Panels, panel, kGuideLine);
  if (!std::all_of(guide.begin(), guide.end(), IsFinite)) return {};
  return guide;
}

}  // namespace brivane
