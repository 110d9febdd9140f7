#pragma once

#include "panels/line_plan.h"

namespace brivane {

/// One pass of the vertical cut: line 0 is the rounded leech; seams run parallel to the straight
/// leech from the gaff or luff (forward end) down to the rounded foot (aft end), stepped off along
/// the foot from the clew; the last line runs down the luff.
/// Fills the grid, which must be erased, and sets PanelCount; leaves both alone when there are too
/// many panels. Throws GeometryFault.
Steps VerticalCutPass(const SurfaceFrame& frame, const Allowances& allowances, Sail& sail);

}  // namespace brivane
