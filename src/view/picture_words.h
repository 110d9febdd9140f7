#pragma once

#include <string>

#include "model/language.h"
#include "model/sail.h"
#include "view/mould_drawing.h"
#include "view/view_state.h"

namespace brivane {

// What the pictures of the windows show, in words, for who cannot see them. Lengths in mm, angles
// in whole degrees as the picture's own readouts tell them.

/// The drawing window's picture: the sail by name, then each kind of line that is on the picture.
std::string SailPictureWords(const Sail& sail, const PictureContent& content, double azimuth,
                             double elevation, Language language, char decimalMark);

/// A profile of the mould window: its depth, and those at 20 % and 80 % of the chord.
std::string ProfileWords(const MouldSection& section, Language language, char decimalMark);

/// The corner patch window's picture: the size of each patch that the sail has.
std::string PatchPictureWords(const Sail& sail, Language language);

}  // namespace brivane
