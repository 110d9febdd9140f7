#pragma once

#include "model/sail.h"

namespace brivane {

/// Lays every strip of the grid flat, panels 0 to PanelCount − 1, triangle by triangle: every
/// edge and every drawn rung keeps its three-dimensional length, and each triangle is laid on the
/// side that its plan orientation gives. Each panel stands in a frame of its own, the chord of its
/// lower seam on the x axis from (0, 0) at point 5, the upper seam above it (the panels of the
/// vertical cut are mirrored for that). Reads the grid, PanelCount, CutType, LeechAngle and
/// SeamWidth. Throws GeometryFault where a point would not be finite.
void DevelopPanels(Sail& sail);

/// Developed width of panel p: the greatest PanelUpperY, mm.
double DevelopedWidth(const DevelopedPanels& panels, int p);

}  // namespace brivane
