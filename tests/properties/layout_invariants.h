#pragma once

#include <string>

#include "model/sail.h"
#include "panels/design_pass.h"

namespace brivane {

/// The first invariant that a sail which was laid out and developed breaks, in words; empty when
/// all hold: everything finite, strips of positive area that tile the boundary of the grid,
/// neighbouring seams that do not cross, ends and codes that advance, steps of 40 mm at least,
/// developed edges of their true length, panels within the cloth when the fit ended.
std::string BrokenInvariant(const Sail& sail, const DesignResult& result);

}  // namespace brivane
