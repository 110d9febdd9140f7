#pragma once

#include <vector>

#include "geometry/plane.h"
#include "model/sail.h"

namespace brivane {

/// The closed cutting outline of a developed panel in its own frame, mm: lower seam's forward end,
/// forward edge, upper seam, aft edge, lower seam back; 75 points. A panel that is not there (all
/// zeros), or that holds a value that is not finite, gives no points. Throws std::out_of_range for
/// a panel outside 0 to 90.
std::vector<PlanePoint> PanelOutline(const DevelopedPanels& panels, int panel);

/// The guide line across a developed panel, 31 points. Empty where it is not finite, and for the
/// last panel, whose guide line runs along its top edge.
std::vector<PlanePoint> PanelGuide(const Sail& sail, int panel);

}  // namespace brivane
