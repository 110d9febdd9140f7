#include "panels/cross_cut.h"

#include <algorithm>
#include <cmath>

namespace brivane {
namespace {

/// The twist-foot cut keeps its lowest seams this part of a cloth width apart on the luff.
constexpr double kTwistFootGap = 1.0 / 5;

/// What the seams of one sail have in common.
struct CrossCut {
  const SurfaceFrame& frame;
  PlanePoint upLeech;  ///< unit vector from the clew to the peak
  PlanePoint square;   ///< unit vector square to the leech, forward to aft
  RoundedEdge straightFoot;
};

CrossCut MakeCrossCut(const SurfaceFrame& frame) {
  return {frame,
          {-frame.SinLeech, frame.CosLeech},
          {frame.CosLeech, frame.SinLeech},
          MakeRoundedEdge(frame.Edges.Foot.Start, frame.Edges.Foot.End, 0, 0.5)};
}

PlanePoint AftOnStraightLeech(const CrossCut& cut, double distance) {
  return cut.frame.Edges.Foot.Start + distance * cut.upLeech;
}

/// Height at which the seam square to the leech meets the luff line, mm.
double HeightOnLuff(const CrossCut& cut, PlanePoint aft) {
  return aft.y - aft.x * cut.frame.SinLeech / cut.frame.CosLeech;
}

/// Gap on the luff that the seams of the twist-foot cut keep: a fifth of the cloth, or less where
/// the luff is too short for the seams that need raising.
double TwistFootGap(const CrossCut& cut, const Steps& steps) {
  const SailDefinition& sail = cut.frame.Definition;
  double gap = sail.ClothWidth * kTwistFootGap;
  for (int line = 1; line < steps.PanelCount; ++line) {
    const double distance = steps.Distance[static_cast<std::size_t>(line)];
    const double height = HeightOnLuff(cut, AftOnStraightLeech(cut, distance));
    gap = std::min(gap, std::max(height / line, sail.LuffLength / (line + 1)));
  }
  return gap;
}

LayoutLine SeamLine(const CrossCut& cut, double distance, double height, PlaneLine seam) {
  const SurfaceFrame& frame = cut.frame;
  const bool pastPeak = distance > frame.Definition.LeechLength;
  LayoutLine line;
  line.Aft = pastPeak ? kThroat + CrossingFraction(frame.Edges.Gaff, seam)
                      : kPeak + CrossingFraction(frame.Edges.Leech, seam);
  if (height <= 0) {
    line.Code = EdgeCode::Foot;
    line.Forward = kClew + CrossingFraction(cut.straightFoot, seam);
  } else if (height <= frame.Definition.LuffLength) {
    line.Code = EdgeCode::Luff;
    line.Forward = kTack + CrossingFraction(frame.Edges.Luff, seam);
  } else {
    line.Code = EdgeCode::Gaff;
    line.Forward = kThroat + CrossingFraction(frame.Edges.Gaff, seam);
  }
  return line;
}

/// Lines 1 to PanelCount − 1.
void PlaceSeams(const CrossCut& cut, const Steps& steps, LinePlan& plan) {
  const bool twistFoot = cut.frame.Definition.CutType == kTwistFootCut;
  const double gap = twistFoot ? TwistFootGap(cut, steps) : 0;
  double before = 0;
  for (int k = 1; k < steps.PanelCount; ++k) {
    const double distance = steps.Distance[static_cast<std::size_t>(k)];
    const PlanePoint aft = AftOnStraightLeech(cut, distance);
    double height = HeightOnLuff(cut, aft);
    PlaneLine seam{aft, cut.square};
    if (twistFoot && height < before + gap) {
      height = before + gap;
      seam.Direction = aft - PlanePoint{0, height};
    }
    before = height;
    plan.Lines[static_cast<std::size_t>(k)] = SeamLine(cut, distance, height, seam);
  }
}

/// Line 0: the straight foot, from the tack or from the first seam's end on the foot.
void PutFootLine(const SurfaceFrame& frame, double forwardX, SurfaceGrid& grid) {
  const SailDefinition& sail = frame.Definition;
  constexpr int kIntervals = kAftCorner - kForwardCorner;
  for (int point = 0; point <= kLastPoint; ++point) {
    const int i = std::clamp(point - kForwardCorner, 0, kIntervals);
    const double x = forwardX + i * (sail.ClewPoint.x - forwardX) / kIntervals;
    grid.SurfaceX(0, point) = x;
    grid.SurfaceY(0, point) = sail.ClewPoint.y * x / sail.ClewPoint.x;
  }
  for (int point = kAftCorner; point <= kLastPoint; ++point) {
    grid.SurfaceX(0, point) = sail.ClewPoint.x;
    grid.SurfaceY(0, point) = sail.ClewPoint.y;
  }
}

}  // namespace

Steps CrossCutPass(const SurfaceFrame& frame, const Allowances& allowances, Sail& sail) {
  const CrossCut cut = MakeCrossCut(frame);
  StepBounds bounds = BoundsAlong(frame, cut.upLeech, frame.Edges.Gaff);
  const Steps steps = StepOff(sail.Definition.ClothWidth, allowances, bounds);
  if (steps.TooMany) return steps;

  LinePlan plan{{{cut.straightFoot, frame.Edges.Luff, frame.Edges.Gaff, frame.Edges.Leech}}};
  plan.PanelCount = steps.PanelCount;
  PlaceSeams(cut, steps, plan);
  const LayoutLine& first = plan.Lines[1];
  const bool fromFoot = steps.PanelCount > 1 && first.Code == EdgeCode::Foot;
  plan.Lines[0] = {fromFoot ? first.Forward : kTack, kClewAgain, EdgeCode::Foot};

  PutFootLine(frame, fromFoot ? plan.Ring.At(first.Forward).x : 0, sail.Grid);
  FillGrid(frame, plan, sail.Grid);
  sail.Definition.PanelCount = static_cast<std::int16_t>(steps.PanelCount);
  return steps;
}

}  // namespace brivane
