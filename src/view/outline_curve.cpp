#include "view/outline_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "geometry/sail_edges.h"
#include "view/projection.h"

namespace brivane {

namespace {

EdgePolyline PointsOf(const RoundedEdge& rounded) {
  EdgePolyline edge;
  for (int k = 0; k < kEdgePoints; ++k)
    edge[static_cast<std::size_t>(k)] = rounded.At(k / (kEdgePoints - 1.0));
  return edge;
}

}  // namespace

const EdgePolyline& OutlineCurve::operator[](int edge) const {
  switch (edge) {
    case 0:
      return Luff;
    case 1:
      return Gaff;
    case 2:
      return Leech;
    case 3:
      return Foot;
    default:
      throw std::out_of_range("Subscript out of range");
  }
}

void Extent::Include(PlanePoint point) {
  Left = std::min(Left, point.x);
  Right = std::max(Right, point.x);
  Bottom = std::min(Bottom, point.y);
  Top = std::max(Top, point.y);
}

OutlineCurve RoundedOutline(const SailDefinition& sail) {
  const SailEdges edges = EdgesOf(sail);
  return {PointsOf(edges.Luff), PointsOf(edges.Gaff), PointsOf(edges.Leech), PointsOf(edges.Foot)};
}

Extent UprightExtent(const SailDefinition& sail) {
  const OutlineCurve outline = RoundedOutline(sail);
  const PlanMapping plan(sail.LuffRake, ViewState{});
  Extent extent;
  for (int edge = 0; edge < 4; ++edge)
    for (const PlanePoint& raked : outline[edge]) extent.Include(plan.Unrake(raked));
  return extent;
}

double FittingScale(double roomWidth, double roomHeight, double width, double height) {
  return std::min(roomWidth / std::max(width, 1.0), roomHeight / std::max(height, 1.0));
}

bool HasOutline(const SailDefinition& sail) {
  for (const double value :
       {sail.LuffLength, sail.LuffRake, sail.ClewPoint.x, sail.ClewPoint.y, sail.PeakPoint.x,
        sail.PeakPoint.y, sail.LuffRound, sail.LeechRound, sail.FootRound})
    if (!std::isfinite(value)) return false;
  return sail.LuffLength > 0 && (sail.ClewPoint.x != 0 || sail.ClewPoint.y != 0);
}

}  // namespace brivane
