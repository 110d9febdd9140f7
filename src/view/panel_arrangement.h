#pragma once

#include <vector>

#include "geometry/plane.h"
#include "model/sail.h"
#include "view/view_state.h"

namespace brivane {

/// The closed cutting outline of a developed panel in its own frame, mm: lower seam's forward end,
/// forward edge, upper seam, aft edge, lower seam back; 75 points. A panel that is not there (all
/// zeros), or that holds a value that is not finite, gives no points.
std::vector<PlanePoint> PanelOutline(const DevelopedPanels& panels, int panel);

/// The guide line across a developed panel, 31 points. Empty where PanelOutline is, and for the
/// last panel, whose guide line runs along its top edge.
std::vector<PlanePoint> PanelGuide(const Sail& sail, int panel);

/// A developed panel in its place beside the sail, mm.
struct PlacedPanel {
  std::vector<PlanePoint> Outline;
  std::vector<PlanePoint> Guide;
};

/// The developed panels in their places beside the sail: stacked upwards in order from the clew,
/// those of the vertical cut standing upright, side by side; a small gap between, never one on top
/// of another nor on the sail. They start at the view's DevelopOrigin, or further right where the
/// sail itself reaches, and lower where the stack would otherwise rise above a fitted picture.
std::vector<PlacedPanel> ArrangePanels(const Sail& sail, const ViewState& view);

}  // namespace brivane
