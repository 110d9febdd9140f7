#include "panels/vertical_cut.h"

#include <cmath>

#include "geometry/faults.h"
#include "geometry/sail_edges.h"

namespace brivane {
namespace {

/// A seam parallel to the leech through the point of the straight foot at a distance from the
/// clew.
PlaneLine SeamAt(const SurfaceFrame& frame, double distance) {
  const SailDefinition& sail = frame.Definition;
  const PlanePoint alongFoot{-frame.CosFoot, -frame.CosFoot * frame.TanFoot};
  return {InPlane(sail.ClewPoint) + distance * alongFoot, {-frame.SinLeech, frame.CosLeech}};
}

/// Ends of the seam. Before the throat has passed it starts on the gaff, afterwards on the luff;
/// before the tack has passed it ends on the foot, afterwards on the luff.
LayoutLine EndsOf(const SurfaceFrame& frame, const PlaneLine& seam) {
  const bool pastThroat = Cross(seam.Direction, frame.Edges.Gaff.Start - seam.Through) < 0;
  const bool pastTack = Cross(seam.Direction, frame.Edges.Luff.Start - seam.Through) < 0;
  LayoutLine line;
  line.Code = pastThroat ? EdgeCode::Luff : EdgeCode::Gaff;
  line.Forward = pastThroat ? kTack + CrossingFraction(frame.Edges.Luff, seam)
                            : kThroat + CrossingFraction(frame.Edges.Gaff, seam);
  line.Aft = pastTack ? kTack + CrossingFraction(frame.Edges.Luff, seam)
                      : kClew + CrossingFraction(frame.Edges.Foot, seam);
  return line;
}

/// Line 0: the rounded leech from the peak to the clew.
void PutLeechLine(const SurfaceFrame& frame, const Boundary& ring, SurfaceGrid& grid) {
  for (int point = 0; point <= kForwardCorner; ++point)
    PutPlace(frame, ring, kPeak, grid, 0, point);
  PutBoundary(frame, ring, kPeak, kClewAgain, grid, 0, kForwardCorner + 1, kAftCorner - 1);
  for (int point = kAftCorner; point <= kLastPoint; ++point)
    PutPlace(frame, ring, kClewAgain, grid, 0, point);
}

}  // namespace

Steps VerticalCutPass(const SurfaceFrame& frame, const Allowances& allowances, Sail& sail) {
  // A step along the foot goes this far square to the leech.
  const double squareShare = std::cos(sail.Definition.LeechAngle - sail.Definition.FootAngle);
  if (!(squareShare > 0)) throw GeometryFault(kFlatSailWords);
  const PlanePoint square{-frame.CosLeech / squareShare, -frame.SinLeech / squareShare};
  const StepBounds bounds = BoundsAlong(frame, square, frame.Edges.Luff);
  const Steps steps = StepOff(sail.Definition.ClothWidth, allowances, bounds);
  if (steps.TooMany) return steps;

  LinePlan plan{{{frame.Edges.Foot, frame.Edges.Luff, frame.Edges.Gaff, frame.Edges.Leech}}};
  plan.PanelCount = steps.PanelCount;
  plan.LastCorner = kTack;
  plan.Lines[0] = {kPeak, kClew, EdgeCode::Gaff};
  for (int k = 1; k < steps.PanelCount; ++k)
    plan.Lines[static_cast<std::size_t>(k)] =
        EndsOf(frame, SeamAt(frame, steps.Distance[static_cast<std::size_t>(k)]));
  plan.LastCode = plan.Lines[static_cast<std::size_t>(steps.PanelCount - 1)].Code;

  PutLeechLine(frame, plan.Ring, sail.Grid);
  FillGrid(frame, plan, sail.Grid);
  sail.Definition.PanelCount = static_cast<std::int16_t>(steps.PanelCount);
  return steps;
}

}  // namespace brivane
