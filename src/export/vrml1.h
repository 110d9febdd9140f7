#pragma once

#include <string>
#include <string_view>

#include "model/sail.h"

namespace brivane {

/// Where the title text of the VRML 1.0 world leads when it is clicked.
inline constexpr std::string_view kAnchorAddress = "http://www.example.com/";

/// Text of the VRML 1.0 world, lengths in m: lights, camera, the surface as triangles over the
/// points 0 to 22 of every line, the lines, and a title above the sail. The camera's values alone
/// carry the regional decimal mark. Throws GeometryFault for a number that is not finite,
/// std::out_of_range for more lines than the grid has.
std::string Vrml1Text(const Sail& sail, char decimalMark);

}  // namespace brivane
