#include "panels/line_plan.h"

#include <algorithm>
#include <cmath>

#include "geometry/faults.h"

namespace brivane {
namespace {

constexpr int kMostStretches = 4;

/// One stretch of a walk along the boundary: a part of a single edge.
struct Stretch {
  double from = 0;
  double to = 0;
  int intervals = 1;
};

struct Walk {
  std::array<Stretch, kMostStretches> stretches{};
  std::size_t count = 0;
};

/// The walk cut at the corners that lie between its ends.
Walk CutAtCorners(double from, double to) {
  Walk walk;
  const bool up = to >= from;
  double at = from;
  while (walk.count < kMostStretches) {
    const double corner = up ? std::floor(at) + 1 : std::ceil(at) - 1;
    const bool ends = up ? corner >= to : corner <= to;
    walk.stretches[walk.count++] = {at, ends ? to : corner, 1};
    if (ends) break;
    at = corner;
  }
  return walk;
}

/// Gives each stretch one interval and every further one to the stretch whose intervals are
/// longest.
void SpreadIntervals(const Boundary& ring, Walk& walk, int intervals) {
  std::array<double, kMostStretches> lengths{};
  for (std::size_t i = 0; i < walk.count; ++i)
    lengths[i] = Length(ring.At(walk.stretches[i].to) - ring.At(walk.stretches[i].from));
  for (int spread = static_cast<int>(walk.count); spread < intervals; ++spread) {
    std::size_t longest = 0;
    for (std::size_t i = 1; i < walk.count; ++i)
      if (lengths[i] * walk.stretches[longest].intervals >
          lengths[longest] * walk.stretches[i].intervals)
        longest = i;
    ++walk.stretches[longest].intervals;
  }
}

bool IsClew(double place) { return place == kClew || place == kClewAgain; }

void PutPoint(SurfaceGrid& grid, int line, int point, PlanePoint at, double z) {
  RequireFinite(at.x);
  RequireFinite(at.y);
  grid.SurfaceX(line, point) = at.x;
  grid.SurfaceY(line, point) = at.y;
  grid.SurfaceZ(line, point) = z;
}

void CopyPoint(SurfaceGrid& grid, int fromLine, int fromPoint, int line, int point) {
  grid.SurfaceX(line, point) = grid.SurfaceX(fromLine, fromPoint);
  grid.SurfaceY(line, point) = grid.SurfaceY(fromLine, fromPoint);
  grid.SurfaceZ(line, point) = grid.SurfaceZ(fromLine, fromPoint);
}

/// Points of one line, gathered in the plane to be lifted to the surface together.
struct LinePoints {
  std::array<PlanePoint, kLastPoint + 1> At;
  std::array<int, kLastPoint + 1> Point;
  std::size_t Count = 0;

  void Add(int point, PlanePoint at) {
    At[Count] = at;
    Point[Count++] = point;
  }
};

void PutPoints(const SurfaceFrame& frame, const LinePoints& points, SurfaceGrid& grid, int line) {
  std::array<double, kLastPoint + 1> z;
  SurfacePointsZ(frame, std::span(points.At).first(points.Count), z.data());
  for (std::size_t i = 0; i < points.Count; ++i)
    PutPoint(grid, line, points.Point[i], points.At[i], z[i]);
}

/// The clew is put at once: it is not lifted.
void AddPlace(const Boundary& ring, double place, SurfaceGrid& grid, int line, int point,
              LinePoints& points) {
  if (IsClew(place))
    PutPoint(grid, line, point, ring.At(place), 0);
  else
    points.Add(point, ring.At(place));
}

/// The straight seam from its forward to its aft end at 30 equal intervals.
void AddSeam(PlanePoint forward, PlanePoint aft, LinePoints& points) {
  constexpr int kIntervals = kAftCorner - kForwardCorner;
  for (int i = 0; i < kIntervals; ++i)
    points.Add(kForwardCorner + i, Between(forward, aft, double(i) / kIntervals));
  points.Add(kAftCorner, aft);
}

/// The boundary between two places, as PutBoundary tells.
void AddBoundary(const Boundary& ring, double from, double to, SurfaceGrid& grid, int line,
                 int first, int last, LinePoints& points) {
  // The ends of the walk are the neighbours of first and last, which stand elsewhere.
  const int intervals = last - first + 2;
  Walk walk = CutAtCorners(from, to);
  SpreadIntervals(ring, walk, intervals);
  int point = first;
  for (std::size_t i = 0; i < walk.count; ++i) {
    const Stretch& stretch = walk.stretches[i];
    for (int step = 1; step <= stretch.intervals && point <= last; ++step, ++point) {
      const double place = step == stretch.intervals ? stretch.to
                                                     : stretch.from + (stretch.to - stretch.from) *
                                                                          step / stretch.intervals;
      AddPlace(ring, place, grid, line, point, points);
    }
  }
}

/// The edge pieces that join the ends of a line to those of the line before.
void AddForwardEdge(const LinePlan& plan, double forward, SurfaceGrid& grid, int line,
                    LinePoints& points) {
  const LayoutLine& before = plan.Lines[static_cast<std::size_t>(line - 1)];
  CopyPoint(grid, line - 1, kForwardCorner, line, 0);
  AddBoundary(plan.Ring, before.Forward, forward, grid, line, 1, kForwardCorner - 1, points);
}

void AddAftEdge(const LinePlan& plan, double aft, SurfaceGrid& grid, int line, LinePoints& points) {
  const LayoutLine& before = plan.Lines[static_cast<std::size_t>(line - 1)];
  AddBoundary(plan.Ring, aft, before.Aft, grid, line, kAftCorner + 1, kLastPoint - 1, points);
  CopyPoint(grid, line - 1, kAftCorner, line, kLastPoint);
}

void PutLine(const SurfaceFrame& frame, const LinePlan& plan, SurfaceGrid& grid, int line) {
  const LayoutLine& ends = plan.Lines[static_cast<std::size_t>(line)];
  LinePoints points;
  AddSeam(plan.Ring.At(ends.Forward), plan.Ring.At(ends.Aft), points);
  AddForwardEdge(plan, ends.Forward, grid, line, points);
  AddAftEdge(plan, ends.Aft, grid, line, points);
  PutPoints(frame, points, grid, line);
}

/// Where the last line ends: at the last corner, or at the aft end of the line before where that
/// lies beyond the corner.
double EndOfLastLine(const LinePlan& plan, const LayoutLine& before) {
  const bool upward = plan.LastCorner == kPeak;
  const bool beyond = upward ? before.Aft < plan.LastCorner : before.Aft > plan.LastCorner;
  return beyond ? before.Aft : plan.LastCorner;
}

/// The last line begins where the line before does: its forward edge piece has no length.
void PutLastLine(const SurfaceFrame& frame, const LinePlan& plan, SurfaceGrid& grid) {
  const int line = plan.PanelCount;
  const LayoutLine& before = plan.Lines[static_cast<std::size_t>(line - 1)];
  const double end = EndOfLastLine(plan, before);
  for (int point = 0; point <= kForwardCorner; ++point)
    CopyPoint(grid, line - 1, kForwardCorner, line, point);
  LinePoints points;
  AddBoundary(plan.Ring, before.Forward, end, grid, line, kForwardCorner + 1, kAftCorner - 1,
              points);
  if (end == before.Aft)
    CopyPoint(grid, line - 1, kAftCorner, line, kAftCorner);
  else
    AddPlace(plan.Ring, end, grid, line, kAftCorner, points);
  AddAftEdge(plan, end, grid, line, points);
  PutPoints(frame, points, grid, line);
}

double CodeValue(EdgeCode code) { return static_cast<double>(code); }

}  // namespace

PlanePoint Boundary::At(double place) const {
  const double edge = std::clamp(std::floor(place), 0.0, 3.0);
  return Edges[static_cast<std::size_t>(edge)].At(place - edge);
}

StepBounds BoundsAlong(const SurfaceFrame& frame, PlanePoint direction,
                       const RoundedEdge& closing) {
  const double clew = Dot(direction, frame.Edges.Foot.Start);
  const double start = Dot(direction, closing.Start) - clew;
  const double end = Dot(direction, closing.End) - clew;
  const double firstCorner = std::min(start, end);
  const double low = ExtentAlong(closing, direction).Low - clew;
  StepBounds bounds{std::max(start, end), 0, 0};
  if (low < firstCorner) {
    bounds.HollowLow = low - kNarrowestStep;
    bounds.HollowHigh = firstCorner;
  }
  return bounds;
}

Steps StepOff(double clothWidth, const Allowances& allowances, const StepBounds& bounds) {
  Steps steps;
  double distance = 0;
  for (int line = 1;; ++line) {
    if (line > kMostPanels) {
      steps.TooMany = true;
      return steps;
    }
    double step = clothWidth - allowances[static_cast<std::size_t>(line - 1)];
    if (step < kNarrowestStep) {
      step = kNarrowestStep;
      ++steps.NarrowSteps;
    }
    double next = distance + step;
    if (next > bounds.HollowLow && next < bounds.HollowHigh)
      next = bounds.HollowLow - distance >= kNarrowestStep ? bounds.HollowLow : bounds.HollowHigh;
    if (next >= bounds.LastCorner) {
      steps.PanelCount = line;
      steps.LastStep = bounds.LastCorner - distance;
      return steps;
    }
    steps.Distance[static_cast<std::size_t>(line)] = distance = next;
  }
}

void PutPlace(const SurfaceFrame& frame, const Boundary& ring, double place, SurfaceGrid& grid,
              int line, int point) {
  LinePoints points;
  AddPlace(ring, place, grid, line, point, points);
  PutPoints(frame, points, grid, line);
}

void PutBoundary(const SurfaceFrame& frame, const Boundary& ring, double from, double to,
                 SurfaceGrid& grid, int line, int first, int last) {
  LinePoints points;
  AddBoundary(ring, from, to, grid, line, first, last, points);
  PutPoints(frame, points, grid, line);
}

void FillGrid(const SurfaceFrame& frame, const LinePlan& plan, SurfaceGrid& grid) {
  grid.SurfaceX(0, kEdgeCodeColumn) = CodeValue(plan.Lines[0].Code);
  for (int line = 1; line < plan.PanelCount; ++line) {
    PutLine(frame, plan, grid, line);
    grid.SurfaceX(line, kEdgeCodeColumn) =
        CodeValue(plan.Lines[static_cast<std::size_t>(line)].Code);
  }
  PutLastLine(frame, plan, grid);
  grid.SurfaceX(plan.PanelCount, kEdgeCodeColumn) = CodeValue(plan.LastCode);
}

}  // namespace brivane
