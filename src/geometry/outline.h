#pragma once

#include <string>

#include "model/sail.h"

namespace brivane {

/// Computes the plane outline of the sail from its dimensions: corners, leech length, angles and
/// area; turns a gaff shorter than 6 mm into the 5 mm stub of a triangular sail; holds the rounds
/// and the cloth and seam widths within their limits. All of it is written back into the record.
/// Throws GeometryFault, with the record as it was, where a result would not be finite.
void ComputeOutline(SailDefinition& sail);

/// Computes the outline and erases the surface grid and the developed panels, so that nothing
/// stale is drawn or written. PanelCount becomes 0. Throws as ComputeOutline does, the grid and the
/// panels erased all the same.
void RecomputeOutline(Sail& sail);

/// Holds each edge round within limits set by the length of its edge.
void ClampRounds(SailDefinition& sail);

/// Holds the cloth width within 1/50 and 3/10 of the diagonal, then the seam width within 1/100
/// and 1/10 of the cloth width.
void ClampCloth(SailDefinition& sail);

}  // namespace brivane
