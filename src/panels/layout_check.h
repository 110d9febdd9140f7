#pragma once

#include "model/sail.h"

namespace brivane {

/// Throws GeometryFault unless the grid's strips can be cut: every strip is a simple polygon of
/// the plane with a positive area, so that neighbouring seams do not cross and no seam leaves the
/// sail. The strips are compared in the plane, to a millionth of a square millimetre.
void RequireCuttableStrips(const SurfaceGrid& grid, int panelCount);

}  // namespace brivane
