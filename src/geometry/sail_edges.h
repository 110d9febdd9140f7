#pragma once

#include "geometry/edge_round.h"
#include "model/sail_definition.h"

namespace brivane {

/// The four edges of a sail with their rounds, as the ring clew, tack, throat, peak, clew.
struct SailEdges {
  RoundedEdge Foot, Luff, Gaff, Leech;
};

/// A corner as a point of the sail's plane, mm.
inline PlanePoint InPlane(const Corner& corner) { return {corner.x, corner.y}; }

/// The edges of the sail, whose outline must be computed, with its stored rounds and positions.
SailEdges EdgesOf(const SailDefinition& sail);

}  // namespace brivane
