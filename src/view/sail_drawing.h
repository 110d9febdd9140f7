#pragma once

#include "model/language.h"
#include "model/sail.h"
#include "view/drawing.h"
#include "view/projection.h"
#include "view/view_state.h"

namespace brivane {

/// What the drawing window's picture shows: the content, at the angles (rad) of its scroll bars,
/// in surface units. A sail without outline, and a view that has not been fitted, show nothing; a
/// sail that has not been laid out shows no seam lines and no panels.
Drawing SailDrawing(const Sail& sail, const ViewState& view, const PictureSize& picture,
                    const PictureContent& content, double azimuth, double elevation,
                    Language language);

/// The same with the content that the view's own mode shows.
Drawing SailDrawing(const Sail& sail, const ViewState& view, const PictureSize& picture,
                    double azimuth, double elevation, Language language);

// The parts of a drawing. Each adds its strokes and texts in drawing order.

/// The four rounded edges in black, luff, gaff, leech, foot, then the diagonal from the throat to
/// the clew in dashed red.
void AppendOutline(const SailDefinition& sail, const ViewState& view, Drawing& drawing);

/// The names of the edges and corners, moved off their points by fixed numbers of surface units.
void AppendLabels(const SailDefinition& sail, const ViewState& view, Language language,
                  Drawing& drawing);

/// Line i of the surface grid, points 0 to 40, in blue. Throws std::out_of_range for i outside 0
/// to 91.
void AppendSeamLine(const SurfaceGrid& grid, const SurfaceMapping& mapping, int i,
                    Drawing& drawing);

/// The readouts of both angles at the top centre of the picture, red-orange where off zero. The
/// azimuth is counted from 90, so that the straight-on view reads 90.
void AppendAngleReadouts(const PictureSize& picture, double azimuth, double elevation,
                         Drawing& drawing);

/// Every developed panel beside the sail: its cutting outline, and its guide line dashed.
void AppendDevelopedPanels(const Sail& sail, const ViewState& view, Drawing& drawing);

}  // namespace brivane
