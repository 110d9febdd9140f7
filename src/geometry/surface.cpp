#include "geometry/surface.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geometry/faults.h"

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

/// A fraction of an edge that has not been looked for.
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// Where the section that lies c above the foot on the luff line, y = tan(FootAngle)·x + c, meets
/// the edge: at a fraction that may be known.
PlanePoint Meeting(const RoundedEdge& edge, const ParallelCrossings& sections, double c,
                   double fraction) {
  return edge.At(std::isnan(fraction) ? sections.At({0, c}) : fraction);
}

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

SectionEnd EndOnGaff(const SurfaceFrame& frame, double c, double fraction) {
  const SailDefinition& sail = frame.Definition;
  const double rise = sail.PeakPoint.y - sail.LuffLength - sail.PeakPoint.x * frame.TanFoot;
  if (rise == 0) throw GeometryFault(kParallelGaffWords);
  const double straightX = (c - sail.LuffLength) * sail.PeakPoint.x / rise;
  const PlanePoint end = Meeting(frame.Edges.Gaff, frame.OnGaff, c, fraction);
  return {end.x, end.y, GaffTwist(sail, frame.Sines, straightX), EdgeCode::Gaff, c};
}

double HeightOnLuff(const SurfaceFrame& frame, double x, double y) { return y - frame.TanFoot * x; }

/// Height fraction of the section; the lowest point of a rounded foot is height 0.
double HeightFraction(const SurfaceFrame& frame, double onLuff) {
  const SailDefinition& sail = frame.Definition;
  if (sail.FootRound <= 0) return onLuff / sail.PeakPoint.y;
  const double e = sail.FootRound / frame.CosFoot;
  return (e + onLuff) / (e + sail.PeakPoint.y);
}

SectionEnd ForwardEnd(const SurfaceFrame& frame, double x, double c, double fraction) {
  if (c <= 0) return EndOnFoot(frame, c, FootCrossing(frame, c, 0, x), c);
  if (c > frame.Definition.LuffLength) return EndOnGaff(frame, c, fraction);
  const PlanePoint end = Meeting(frame.Edges.Luff, frame.OnLuff, c, fraction);
  return {end.x, end.y, 0, EdgeCode::Luff, c};
}

SectionEnd AftEnd(const SurfaceFrame& frame, PlanePoint at, double c, double fraction) {
  const SailDefinition& sail = frame.Definition;
  const double aboveClew = frame.TanFoot * (sail.ClewPoint.x - at.x) + at.y - sail.ClewPoint.y;
  const double onLeech =
      aboveClew * frame.SinLeech * frame.TanLeechFoot + aboveClew * frame.CosLeech;
  if (onLeech <= 0)
    return EndOnFoot(frame, c, FootCrossing(frame, c, sail.ClewPoint.x, at.x), onLeech);
  const PlanePoint end = Meeting(frame.Edges.Leech, frame.OnLeech, c, fraction);
  return {end.x, end.y, TwistOffset(sail, end.x, end.y), EdgeCode::Luff, onLeech};
}

/// z of the surface at a point between the ends of its section.
double ZBetween(const SurfaceFrame& frame, const SectionEnd& forward, const SectionEnd& aft,
                PlanePoint at) {
  const SailDefinition& sail = frame.Definition;
  const double depth = DepthAt(sail, HeightFraction(frame, forward.Along));
  double luffHeight = forward.Along / sail.PeakPoint.y;
  double leechHeight = aft.Along / sail.LeechLength;
  const Section section(LuffShapeAt(sail, luffHeight), LeechShapeAt(sail, leechHeight));
  const double normaliser = frame.Normaliser(section);

  const double chord = Length({aft.x - forward.x, aft.y - forward.y}) + kChordAllowance;
  const double p = Length({at.x - forward.x, at.y - forward.y}) / chord;
  const double camber = depth * (normaliser * section.At(p)) * chord;
  const double z = forward.z + camber + (aft.z - forward.z) * p;
  RequireFinite(z);
  return z;
}

/// The sections through several points: their heights on the luff line and the fractions of the
/// edges at which they end.
struct Sections {
  Lanes Height;
  Lanes Forward;  ///< of the luff or the gaff, or unknown
  Lanes Aft;      ///< of the leech, or unknown
};

Sections FindSections(const SurfaceFrame& frame, std::span<const PlanePoint> points) {
  const double throat = frame.Definition.LuffLength;
  Sections sections;
  sections.Forward.fill(kUnknown);
  for (std::size_t i = 0; i < kLanes; ++i) {
    const PlanePoint& at = points[std::min(i, points.size() - 1)];
    sections.Height[i] = HeightOnLuff(frame, at.x, at.y);
  }
  const auto [lowest, highest] = std::ranges::minmax(sections.Height);
  if (lowest <= throat) sections.Forward = frame.OnLuff.QuicklyAt(sections.Height);
  if (highest > throat) {
    const Lanes onGaff = frame.OnGaff.QuicklyAt(sections.Height);
    for (std::size_t i = 0; i < kLanes; ++i)
      if (sections.Height[i] > throat) sections.Forward[i] = onGaff[i];
  }
  sections.Aft = frame.OnLeech.QuicklyAt(sections.Height);
  return sections;
}

}  // namespace

SurfaceFrame::SurfaceFrame(SailDefinition& sail)
    : Definition((RequireUsable(sail), sail)),
      FootRoundPos(sail.FootRoundPos),
      Edges(EdgesWithSymmetricFoot(sail)),
      OnLuff(Edges.Luff, {1, std::tan(sail.FootAngle)}),
      OnGaff(Edges.Gaff, {1, std::tan(sail.FootAngle)}),
      OnLeech(Edges.Leech, {1, std::tan(sail.FootAngle)}),
      Sines(sail),
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
  return ForwardEnd(frame, x, HeightOnLuff(frame, x, y), kUnknown);
}

SectionEnd FindAftEnd(const SurfaceFrame& frame, double x, double y) {
  return AftEnd(frame, {x, y}, HeightOnLuff(frame, x, y), kUnknown);
}

double FootDepth(const SurfaceFrame& frame, double x) {
  const double t = x / frame.Definition.ClewPoint.x;  // the profile is 0 outside 0 to 1
  return SectionProfile(frame.FootLuffShape, frame.FootLeechShape, frame.FootDepthScale, t);
}

double SurfacePointZ(const SurfaceFrame& frame, double x, double y) {
  return ZBetween(frame, FindForwardEnd(frame, x, y), FindAftEnd(frame, x, y), {x, y});
}

void SurfacePointsZ(const SurfaceFrame& frame, std::span<const PlanePoint> points, double* z) {
  for (; !points.empty(); z += kLanes) {
    const auto block = points.first(std::min(kLanes, points.size()));
    const Sections sections = FindSections(frame, block);
    for (std::size_t i = 0; i < block.size(); ++i) {
      const double c = sections.Height[i];
      const SectionEnd forward = ForwardEnd(frame, block[i].x, c, sections.Forward[i]);
      const SectionEnd aft = AftEnd(frame, block[i], c, sections.Aft[i]);
      z[i] = ZBetween(frame, forward, aft, block[i]);
    }
    points = points.subspan(block.size());
  }
}

}  // namespace brivane
