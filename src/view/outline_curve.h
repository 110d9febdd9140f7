#pragma once

#include <array>

#include "geometry/plane.h"
#include "model/sail_definition.h"

namespace brivane {

/// An edge is drawn as 21 points, evenly spaced along its chord.
inline constexpr int kEdgePoints = 21;
using EdgePolyline = std::array<PlanePoint, kEdgePoints>;

/// The rounded edges of the sail in drawing order: luff (tack to throat), gaff (throat to peak),
/// leech (peak to clew), foot (clew to tack).
struct OutlineCurve {
  EdgePolyline Luff, Gaff, Leech, Foot;
  const EdgePolyline& operator[](int edge) const;
};

/// The drawn outline of the sail in its own plane, mm, not yet unraked: every edge pushed outward,
/// square to its chord, by its round; a hollow edge is pushed inward.
OutlineCurve RoundedOutline(const SailDefinition& sail);

/// Where a set of points lies, mm or surface units. A new one is the origin alone.
struct Extent {
  double Left = 0, Right = 0, Bottom = 0, Top = 0;
  void Include(PlanePoint point);
  double Width() const { return Right - Left; }
  double Height() const { return Top - Bottom; }
};

/// The greatest scale, surface units per mm, at which something so wide and high (mm) fits into the
/// room (surface units). Nothing counts for less than 1 mm, so that a mere line has a scale too.
double FittingScale(double roomWidth, double roomHeight, double width, double height);

/// Extent of the drawn outline once the luff has been stood upright, mm. The tack, (0, 0), is
/// part of it.
Extent UprightExtent(const SailDefinition& sail);

/// True where the outline has been computed and can be drawn: finite, and with a size.
bool HasOutline(const SailDefinition& sail);

}  // namespace brivane
