#pragma once

#include <array>
#include <cstddef>

#include "geometry/plane.h"

namespace brivane {

/// The one shape of every edge round: the cubic 1 + b(t − p)² + c(t − p)³ which is 0 at both ends
/// of the edge and 1 at its greatest round.
struct EdgeRoundCurve {
  double p = 0.5;  ///< fraction of the edge where the round is greatest, within [0.3, 0.7]
  double b = 0;
  double c = 0;

  /// Offset at the fraction t of the edge, as a fraction of the round.
  double At(double t) const {
    const double u = t - p;
    return 1 + (b + c * u) * u * u;
  }

  /// Change of the offset along the edge, per fraction of the edge.
  double SlopeAt(double t) const {
    const double u = t - p;
    return (2 * b + 3 * c * u) * u;
  }
};

/// The curve whose greatest round lies at the fraction position, held within [0.3, 0.7].
EdgeRoundCurve MakeEdgeRoundCurve(double position);

/// An edge of the sail with its round. The ring foot, luff, gaff, leech runs clockwise (clew, tack,
/// throat, peak, clew), so that outward is to the left of every edge.
struct RoundedEdge {
  PlanePoint Start;
  PlanePoint End;
  PlanePoint Outward;  ///< unit vector square to the straight edge
  double Round = 0;    ///< mm, positive = outward
  EdgeRoundCurve Curve;
  double SteepestSlope = 0;  ///< greatest |SlopeAt| along the edge

  /// The point at the fraction t of the edge, on the round; the corners exactly at and beyond 0
  /// and 1.
  PlanePoint At(double t) const;
};

/// The edge from start to end with a round in mm and its position as a fraction from start.
/// An edge without length has no outward side; it stays a point.
RoundedEdge MakeRoundedEdge(PlanePoint start, PlanePoint end, double round, double position);

/// Signed distance of the points of an edge from a line, scaled by the length of the line's
/// direction, as a function of the fraction t of the edge: constant + along·t + across·f(t).
struct LineDistance {
  double constant = 0;
  double along = 0;
  double across = 0;
  EdgeRoundCurve curve;

  double At(double t) const { return constant + along * t + across * curve.At(t); }
  double SlopeAt(double t) const { return along + across * curve.SlopeAt(t); }
};

/// A straight line of the plane. The direction need not have unit length.
struct PlaneLine {
  PlanePoint Through;
  PlanePoint Direction;
};

/// Fraction of the edge, 0 to 1, at which the line crosses its round, exact to 1e-9 mm. Where a
/// steep round is met more than once it is the crossing nearest to the straight edge's; where the
/// line passes the edge by, the corner on that side.
double CrossingFraction(const RoundedEdge& edge, const PlaneLine& line);

/// So many crossings are looked for at once: the compiler computes two of them in one instruction,
/// and the next two while these wait for a division.
inline constexpr std::size_t kLanes = 8;
using Lanes = std::array<double, kLanes>;

/// The crossings of one edge with lines of one direction: what they have in common, taken once.
class ParallelCrossings {
 public:
  ParallelCrossings(const RoundedEdge& edge, PlanePoint direction);

  /// CrossingFraction for the line through a point.
  double At(PlanePoint through) const;

  /// CrossingFraction, bit for bit, for the lines through the points (0, y). NaN where a line does
  /// not cross the straight edge or a few of Newton's steps do not lead to the crossing: At tells.
  Lanes QuicklyAt(const Lanes& y) const;

 private:
  PlanePoint start_, direction_;
  LineDistance distance_;  ///< of the edge from the line through its start
  bool monotone_;          ///< the distance has no turn along the edge
  bool gentle_;            ///< nor comes near to one: its slope is a tenth of the straight edge's
};

/// How far the rounded edge reaches along a direction: least and greatest dot product, mm.
struct EdgeReach {
  double Low = 0;
  double High = 0;
};
EdgeReach ExtentAlong(const RoundedEdge& edge, PlanePoint direction);

}  // namespace brivane
