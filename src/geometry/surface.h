#pragma once

#include <cstdint>
#include <span>

#include "geometry/mould.h"
#include "geometry/sail_edges.h"
#include "geometry/twist.h"
#include "model/sail.h"

namespace brivane {

/// One end of a horizontal section: the straight line through a point, parallel to the foot.
struct SectionEnd {
  double x = 0;
  double y = 0;
  double z = 0;
  EdgeCode Edge = EdgeCode::Luff;  ///< aft ends: Foot or, on the leech, Luff
  double Along = 0;  ///< forward end: height of the section on the luff line; aft end: distance
                     ///< from the clew along the straight leech, mm
};

/// What the surface of one sail is computed from, taken once: the rounded edges, the slopes and
/// the foot section. Lives no longer than its sail, whose outline must be computed.
struct SurfaceFrame {
  /// Throws GeometryFault where the outline or the mould cannot carry a surface: a peak not above
  /// the clew, a sail without width, a maximum depth not strictly between foot and head, a luff
  /// shape of −1 or less.
  explicit SurfaceFrame(SailDefinition& definition);

  const SailDefinition& Definition;
  std::int16_t& FootRoundPos;  ///< a section that ends on the foot sets it to 50

  SailEdges Edges;                            ///< the foot round always symmetric
  ParallelCrossings OnLuff, OnGaff, OnLeech;  ///< of the sections
  GaffSines Sines;
  double TanFoot, CosFoot;    ///< of FootAngle
  double SinLeech, CosLeech;  ///< of LeechAngle
  double TanLeechFoot;        ///< of LeechAngle − FootAngle
  double FootDepthScale;      ///< depth × normaliser × FootLength of the foot, mm
  double FootLuffShape, FootLeechShape;
  mutable NormaliserWalk Normaliser;
};

/// Forward end of the section through (x, y): on the foot, the luff or the gaff.
/// Throws GeometryFault where it would meet a gaff that is parallel to the foot.
SectionEnd FindForwardEnd(const SurfaceFrame& frame, double x, double y);

/// Aft end of the section through (x, y): on the leech, or on the foot below the clew.
SectionEnd FindAftEnd(const SurfaceFrame& frame, double x, double y);

/// Depth of the foot at x, mm.
double FootDepth(const SurfaceFrame& frame, double x);

/// z of the surface at the plane point (x, y), mm: twist of the section's ends and its camber.
/// Throws GeometryFault where the result is not finite.
double SurfacePointZ(const SurfaceFrame& frame, double x, double y);

/// SurfacePointZ of one point after another, at half the time that it takes each by itself. Throws
/// as it does.
void SurfacePointsZ(const SurfaceFrame& frame, std::span<const PlanePoint> points, double* z);

}  // namespace brivane
