#pragma once

#include <string_view>
#include <vector>

#include "model/dimension_fields.h"
#include "model/language.h"
#include "model/sail_definition.h"

namespace brivane {

/// A correction that the window announces (OK button only), its field highlighted meanwhile.
struct FieldNotice {
  DimensionField Field;
  BilingualText Message;
};

/// The background that a field is to have.
enum class FieldColour { Unchanged, Normal, Yellow };

/// What entering a field came to, beside the corrected record.
struct FieldOutcome {
  std::vector<FieldNotice> Notices;             ///< in the order in which they are shown
  FieldColour Colour = FieldColour::Unchanged;  ///< of the entered field
};

/// A typed gaff angle is held within these, degrees: the gaff is never parallel to the luff.
inline constexpr double kLeastGaffDegrees = 1;
inline constexpr double kMostGaffDegrees = 179;

/// A typed luff rake or twist is held within plus and minus this, degrees.
inline constexpr double kMostTiltDegrees = 89;

/// A typed round position is held within these, % of the edge.
inline constexpr double kLeastRoundPos = 35;
inline constexpr double kMostRoundPos = 65;

/// Stores a text that the user typed into the field and corrects the record by the field's rules.
/// Luff, foot, diagonal and gaff check one after the other, each starting the next; the gaff is
/// checked against the clew of the last outline (not at all before there is one). Pass only what
/// differs from what the program put into the field: angles are shown in whole degrees and would
/// lose their fraction. Any text is taken; every stored value is finite. The outline is not
/// computed here.
FieldOutcome EnterField(SailDefinition& sail, DimensionField field, std::string_view typed);

/// Whether the outline is to be computed again when the focus leaves the field.
bool LeavingRecomputesOutline(DimensionField field);

}  // namespace brivane
