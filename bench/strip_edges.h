#pragma once

#include <array>

#include "model/sail.h"

namespace bench {

/// The edges of the triangles of one strip: 30 of each seam, 31 rungs, 30 diagonals, 5 of each
/// edge piece and the 3 inner rays of each of their fans.
inline constexpr std::size_t kStripEdges = 137;
using EdgeLengths = std::array<double, kStripEdges>;

/// Lengths of the edges of strip p on the surface, mm, in the order in which a development takes
/// them: rung, diagonal, both seams and so on going aft, then the fans.
void SpaceEdges(const brivane::SurfaceGrid& grid, int p, EdgeLengths& lengths);

/// The same edges of panel p laid flat.
void FlatEdges(const brivane::DevelopedPanels& panels, int p, EdgeLengths& lengths);

}  // namespace bench
