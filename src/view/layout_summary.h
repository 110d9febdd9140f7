#pragma once

#include <string>

#include "model/language.h"
#include "model/sail.h"

namespace brivane {

/// One line about the panels of a sail, for the foot of its picture: their number and the width of
/// the widest one, mm, with the regional decimal mark; a warning where that one is wider than the
/// cloth. Empty for a sail without panels.
std::string LayoutSummary(const Sail& sail, Language language, char decimalMark);

}  // namespace brivane
