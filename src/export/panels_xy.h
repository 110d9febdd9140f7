#pragma once

#include <string>

#include "model/sail.h"

namespace brivane {

/// Text of the XY file: for each panel its lower edge, the rest of its outline and its guide line
/// as lines of "x;y", mm with one decimal. Throws GeometryFault for a number that is not finite,
/// std::out_of_range for more panels than the tables have.
std::string PanelsXYText(const Sail& sail, char decimalMark);

}  // namespace brivane
