#pragma once

#include <array>

#include "geometry/plane.h"
#include "model/sail.h"

namespace brivane {

/// One panel laid flat, mm; indices as in DevelopedPanels.
struct FlatPanel {
  using Points = std::array<PlanePoint, kLastPoint + 1>;
  Points Lower;  ///< 5 to 35
  Points Upper;  ///< 5 to 35
  Points Edge;   ///< 0 to 5 forward edge, 5 to 35 guide line, 35 to 40 aft edge
};

/// Draws the guide line (points 5 to 35 of Edge) at seamWidth (mm) inside the upper seam. Points 5
/// and 35 are the upper corners; 6 and 34 lie on the cut where the line meets it; 7 to 33 run
/// along the line. Where the panel is narrower than the seam the line keeps to the lower seam.
/// The last panel has no seam above: its guide line is its top edge.
void DrawGuideLine(FlatPanel& panel, double seamWidth, bool lastPanel);

}  // namespace brivane
