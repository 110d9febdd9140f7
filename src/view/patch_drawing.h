#pragma once

#include "model/sail.h"
#include "view/drawing.h"
#include "view/view_state.h"

namespace brivane {

/// The view that shows the whole outline as large as the picture's nominal area allows, in its
/// middle. Scale 0 where the sail has no outline or the picture no size.
ViewState PatchView(const SailDefinition& sail, const PictureSize& picture);

/// The picture of the corner patch window: the sail's outline in black, and its patches corner by
/// corner, the first layer in blue, the second in red. Empty where PatchView has no scale. Throws
/// GeometryFault as PatchOutline does.
Drawing PatchDrawing(const Sail& sail, const PictureSize& picture);

}  // namespace brivane
