#include "geometry/surface.h"

#include <cmath>

#include "geometry/faults.h"
#include "geometry/twist.h"

namespace brivane {
namespace {

/// The foot round is always taken as symmetric, whatever was typed.
constexpr std::int16_t kFootRoundPosition = 50;

/// Keeps a section without length at a corner from dividing by zero, mm.
constexpr double kChordAllowance = 0.01;

void RequireUsable(const SailDefinition& sail) {
  if (!(sail.PeakPoint.y > sail.ClewPoint.y)) throw GeometryFault(kPeakBelowClewWords);
  if (!(sail.PeakPoint.y > 0) || !(sail.ClewPoint.x > 0) || !(sail.PeakPoint.x > 0) ||
      !(sail.LuffLength > 0) || !(sail.LeechLength > 0))
    throw GeometryFault(kFlatSailWords);
  if (!DividesHeight(sail)) throw GeometryFault(kMouldWords);
  for (const double exponent : sail.LuffShape)
    if (!(exponent > -1)) throw GeometryFault(kMouldWords);
}

/// The edges of the sail with the foot round in the middle.
SailEdges EdgesWithSymmetricFoot(const SailDefinition& sail) {
  SailEdges edges = EdgesOf(sail);
  edges.Foot =
      MakeRoundedEdge(edges.Foot.Start, edges.Foot.End, sail.FootRound, kFootRoundPosition / 100.0);
  return edges;
}

/// The section's line y = tan(FootAngle)·x + c.
PlaneLine SectionLine(const SurfaceFrame& frame, double c) { return {{0, c}, {1, frame.TanFoot}}; }

/// x at which the section that lies c (≤ 0) above the foot on the luff line meets the foot round,
/// between the corner at outer and a point inside at inner: ten halvings, no more.
double FootCrossing(const SurfaceFrame& frame, double c, double outer, double inner) {
  constexpr int kHalvings = 10;
  const double target = -c * frame.CosFoot;
  double middle = inner;
  for (int halving = 0; halving < kHalvings; ++halving) {
    middle = (outer + inner) / 2;
    const double round = frame.Definition.FootRound *
                         frame.Edges.Foot.Curve.At(middle / frame.Definition.ClewPoint.x);
    (round < target ? outer : inner) = middle;
  }
  return middle;
}

/// The end of a section on the foot round, found from the crossing at m.
SectionEnd EndOnFoot(const SurfaceFrame& frame, double c, double m, double along) {
  frame.FootRoundPos = kFootRoundPosition;
  const double x = m + frame.TanFoot * c;
  // The depth is taken at m on purpose, not at the end itself.
  return {x, frame.TanFoot * x + c, FootDepth(frame, m), EdgeCode::Foot, along};
}

SectionEnd EndOnGaff(const SurfaceFrame& frame, double c) {
  const SailDefinition& sail = frame.Definition;
  const double rise = sail.PeakPoint.y - sail.LuffLength - sail.PeakPoint.x * frame.TanFoot;
  if (rise == 0) throw GeometryFault(kParallelGaffWords);
  const double straightX = (c - sail.LuffLength) * sail.PeakPoint.x / rise;
  const PlanePoint end =
      frame.Edges.Gaff.At(CrossingFraction(frame.Edges.Gaff, SectionLine(frame, c)));
  return {end.x, end.y, GaffTwist(sail, straightX), EdgeCode::Gaff, c};
}

double HeightOnLuff(const SurfaceFrame& frame, double x, double y) { return y - frame.TanFoot * x; }

/// Height fraction of the section; the lowest point of a rounded foot is height 0.
double HeightFraction(const SurfaceFrame& frame, double onLuff) {
  const SailDefinition& sail = frame.Definition;
  if (sail.FootRound <= 0) return onLuff / sail.PeakPoint.y;
  const double e = sail.FootRound / frame.CosFoot;
  return (e + onLuff) / (e + sail.PeakPoint.y);
}

}  // namespace

SurfaceFrame::SurfaceFrame(SailDefinition& sail)
    : Definition((RequireUsable(sail), sail)),
      FootRoundPos(sail.FootRoundPos),
      Edges(EdgesWithSymmetricFoot(sail)),
      TanFoot(std::tan(sail.FootAngle)),
      CosFoot(std::cos(sail.FootAngle)),
      SinLeech(std::sin(sail.LeechAngle)),
      CosLeech(std::cos(sail.LeechAngle)),
      TanLeechFoot(std::tan(sail.LeechAngle - sail.FootAngle)) {
  double height = 0;
  FootLuffShape = LuffShapeAt(sail, height);
  FootLeechShape = LeechShapeAt(sail, height);
  FootDepthScale =
      DepthAt(sail, 0) * ProfileNormaliser(FootLuffShape, FootLeechShape) * sail.FootLength;
  RequireFinite(FootDepthScale);
}

SectionEnd FindForwardEnd(const SurfaceFrame& frame, double x, double y) {
  const double c = HeightOnLuff(frame, x, y);
  if (c <= 0) return EndOnFoot(frame, c, FootCrossing(frame, c, 0, x), c);
  if (c > frame.Definition.LuffLength) return EndOnGaff(frame, c);
  const PlanePoint end =
      frame.Edges.Luff.At(CrossingFraction(frame.Edges.Luff, SectionLine(frame, c)));
  return {end.x, end.y, 0, EdgeCode::Luff, c};
}

SectionEnd FindAftEnd(const SurfaceFrame& frame, double x, double y) {
  const SailDefinition& sail = frame.Definition;
  const double c = HeightOnLuff(frame, x, y);
  const double aboveClew = frame.TanFoot * (sail.ClewPoint.x - x) + y - sail.ClewPoint.y;
  const double onLeech =
      aboveClew * frame.SinLeech * frame.TanLeechFoot + aboveClew * frame.CosLeech;
  if (onLeech <= 0)
    return EndOnFoot(frame, c, FootCrossing(frame, c, sail.ClewPoint.x, x), onLeech);
  const PlanePoint end =
      frame.Edges.Leech.At(CrossingFraction(frame.Edges.Leech, SectionLine(frame, c)));
  return {end.x, end.y, TwistOffset(sail, end.x, end.y), EdgeCode::Luff, onLeech};
}

double FootDepth(const SurfaceFrame& frame, double x) {
  const double t = x / frame.Definition.ClewPoint.x;  // the profile is 0 outside 0 to 1
  return SectionProfile(frame.FootLuffShape, frame.FootLeechShape, frame.FootDepthScale, t);
}

double SurfacePointZ(const SurfaceFrame& frame, double x, double y) {
  const SailDefinition& sail = frame.Definition;
  const SectionEnd forward = FindForwardEnd(frame, x, y);
  const SectionEnd aft = FindAftEnd(frame, x, y);

  const double depth = DepthAt(sail, HeightFraction(frame, forward.Along));
  double luffHeight = forward.Along / sail.PeakPoint.y;
  double leechHeight = aft.Along / sail.LeechLength;
  const double luffShape = LuffShapeAt(sail, luffHeight);
  const double leechShape = LeechShapeAt(sail, leechHeight);
  const double normaliser = frame.Normaliser(luffShape, leechShape);

  const double chord = Length({aft.x - forward.x, aft.y - forward.y}) + kChordAllowance;
  const double p = Length({x - forward.x, y - forward.y}) / chord;
  const double camber = depth * SectionProfile(luffShape, leechShape, normaliser, p) * chord;
  const double z = forward.z + camber + (aft.z - forward.z) * p;
  RequireFinite(z);
  return z;
}

}  // namespace brivane
