#pragma once

#include <vector>

#include "geometry/plane.h"
#include "model/sail.h"
#include "view/view_state.h"

namespace brivane {

/// A developed panel in its place beside the sail, mm.
struct PlacedPanel {
  std::vector<PlanePoint> Outline;
  std::vector<PlanePoint> Guide;
};

/// The developed panels in their places beside the sail: stacked upwards in order from the clew,
/// those of the vertical cut standing upright, side by side; a small gap between, never one on top
/// of another nor on the sail. They start at the view's DevelopOrigin, or further right where the
/// sail itself reaches, and lower where the stack would otherwise rise above a fitted picture. A
/// stack higher than the picture goes on in a further column on its right.
std::vector<PlacedPanel> ArrangePanels(const Sail& sail, const ViewState& view);

}  // namespace brivane
