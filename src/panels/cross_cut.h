#pragma once

#include "panels/line_plan.h"

namespace brivane {

/// One pass of the cross cut or, for CutType "TWISTFOOTCUT", of the twist-foot cut: seams step up
/// the leech, square to it, from the clew to the peak or, where that lies higher, the throat. Line
/// 0 is the straight foot with z = 0. The twist-foot cut raises its lowest seams so that each
/// reaches the luff at least a fifth of a cloth width above the one before.
/// Fills the grid, which must be erased, and sets PanelCount; leaves both alone when there are too
/// many panels. Throws GeometryFault.
Steps CrossCutPass(const SurfaceFrame& frame, const Allowances& allowances, Sail& sail);

}  // namespace brivane
