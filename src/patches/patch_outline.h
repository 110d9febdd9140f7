#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "geometry/plane.h"
#include "model/sail.h"

namespace brivane {

/// The corners that are patched, in the order of the patch sizes and of every list of patches.
enum class PatchCorner { Clew = 0, Tack = 1, Head = 2, Peak = 3 };

/// How many corners are patched at most, and in how many layers.
inline constexpr int kPatchCorners = 4;
inline constexpr int kPatchLayers = 2;

/// Limits of a patch's height and width, % of an edge.
inline constexpr std::int16_t kSmallestPatch = 1;
inline constexpr std::int16_t kLargestPatch = 50;

/// Size of the second layer as a fraction of the first.
inline constexpr double kUpperLayerSize = 0.8;

/// A typed size as a whole number of % within the limits, halves to the even neighbour.
std::int16_t PatchPercent(double typed);

/// The corners that get a patch, in order: all four, or without the peak on a sail without a gaff.
std::vector<PatchCorner> PatchedCorners(const SailDefinition& sail);

/// Short code of a corner in the plotter file ("cl") and word in the names of files ("clew").
std::string_view PatchCode(PatchCorner corner);
std::string_view PatchWord(PatchCorner corner);

/// Outline of one layer (0 or 1) of a corner's patch in the plane of the sail, mm, the luff
/// upright: from the corner along the edge that carries the height, over the inner edge, back
/// along the edge that carries the width; the last point is the first one again. Both sides are
/// the sail's own rounded edges; the inner edge is slightly hollow on straight edges and bends
/// with them, so that the patch stays inside the sail where an edge is hollow; at a blunt corner,
/// as below a steep gaff, it swells into the sail. Layer 1 goes 80 % as far along both edges and
/// lies inside layer 0.
///
/// On a sail without a gaff the head patch covers the whole head: its width runs down the leech, %
/// of the leech, and the stub belongs to its outline. There is no peak patch then, but its outline
/// is defined. Throws GeometryFault where a point is not finite, as for a sail whose outline has
/// not been computed.
std::vector<PlanePoint> PatchOutline(const Sail& sail, PatchCorner corner, int layer);

/// A place for the label inside the outline that PatchOutline gave, whole tenths of a mm.
PlanePoint PatchLabelPlace(const std::vector<PlanePoint>& outline);

}  // namespace brivane
