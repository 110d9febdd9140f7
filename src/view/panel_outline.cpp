#include "view/panel_outline.h"

#include <cmath>

namespace brivane {

std::vector<PlanePoint> PanelOutline(const DevelopedPanels& panels, int panel) {
  std::vector<PlanePoint> outline;
  outline.reserve(75);
  const auto lower = [&](int k) {
    outline.push_back({panels.PanelLowerX(panel, k), panels.PanelLowerY(panel, k)});
  };
  const auto edge = [&](int k) {
    outline.push_back({panels.PanelEdgeX(panel, k), panels.PanelEdgeY(panel, k)});
  };
  lower(kForwardCorner);
  for (int k = 0; k <= kForwardCorner; ++k) edge(k);
  for (int k = kForwardCorner; k <= kAftCorner; ++k)
    outline.push_back({panels.PanelUpperX(panel, k), panels.PanelUpperY(panel, k)});
  for (int k = kAftCorner; k <= kLastPoint; ++k) edge(k);
  for (int k = kAftCorner; k >= kForwardCorner; --k) lower(k);

  bool hasExtent = false;
  for (const PlanePoint& point : outline) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) return {};
    hasExtent = hasExtent || point != outline.front();
  }
  if (!hasExtent) outline.clear();
  return outline;
}

std::vector<PlanePoint> PanelGuide(const Sail& sail, int panel) {
  std::vector<PlanePoint> guide;
  if (panel >= sail.Definition.PanelCount - 1) return guide;
  guide.reserve(kAftCorner - kForwardCorner + 1);
  for (int k = kForwardCorner; k <= kAftCorner; ++k) {
    guide.push_back({sail.Panels.PanelEdgeX(panel, k), sail.Panels.PanelEdgeY(panel, k)});
    if (!std::isfinite(guide.back().x) || !std::isfinite(guide.back().y)) return {};
  }
  return guide;
}

}  // namespace brivane
