#pragma once

#include "model/language.h"
#include "model/sail_definition.h"
#include "view/drawing.h"
#include "view/paper.h"
#include "view/view_state.h"

namespace brivane {

/// The plan mapping of the printed drawing: the outline with its rounds takes 0.9 of the page's
/// width or height, whichever it fills first, and starts at 0.02 of the page.
ViewState PrintView(const SailDefinition& sail, const Paper& paper);

/// The page of the printed drawing: program and sail, the plan to scale with the names of its
/// edges and corners, and the scale bar. A sail without outline gives the title alone.
Drawing PrintedDrawing(const SailDefinition& sail, const Paper& paper, Language language,
                       const TextMeasure& measure);

}  // namespace brivane
