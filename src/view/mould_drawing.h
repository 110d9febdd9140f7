#pragma once

#include "model/language.h"
#include "model/sail_definition.h"
#include "view/drawing.h"
#include "view/view_state.h"

namespace brivane {

/// A section of the mould: its shape values and its depth in % of the chord.
struct MouldSection {
  double LuffShape = 0;
  double LeechShape = 0;
  double Depth = 0;
};

/// The section that a column of the mould window shows: the values of that height as they are set.
MouldSection SectionOfColumn(const SailDefinition& sail, MouldHeight column);

/// The section of the first drawing, at the height of the maximum depth.
MouldSection DeepestSection(const SailDefinition& sail);

/// The section of the second drawing, at nine tenths of the height, near the head.
MouldSection TopSection(const SailDefinition& sail);

/// Depth of the section at a fraction of the chord from the luff, in % of the chord; the greatest
/// is the section's own depth. 0 where the values give no finite depth.
double SectionDepthAt(const MouldSection& section, double chordFraction);

/// One profile across the picture: the chord as a level line, the curve above it, and a vertical
/// scale marked from "0%" in steps of ten percent up to above the deepest point, at least to "10%".
/// The heights are drawn larger than the chord so that shapes can be told apart. Dashed verticals
/// at 20 % and 80 % of the chord are marked below it. In units of the picture's user scale.
Drawing ProfileDrawing(const MouldSection& section, const PictureSize& picture);

}  // namespace brivane
