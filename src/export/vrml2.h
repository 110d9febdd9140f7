#pragma once

#include <string>

#include "model/sail.h"

namespace brivane {

/// Text of the VRML 2.0 world, lengths in m, always with a point: four viewpoints, lights, the
/// sail tilted by its rake, one shape of triangles per panel over the points 0 to 40 of its two
/// lines. Throws GeometryFault for a number that is not finite, std::out_of_range for more lines
/// than the grid has.
std::string Vrml2Text(const Sail& sail);

}  // namespace brivane
