#include "panels/development.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry/plane.h"
#include "panels/flat_panel.h"

namespace brivane {
namespace {

struct StripPoint {
  double x = 0, y = 0, z = 0;
  PlanePoint flat;
};

using Row = std::array<StripPoint, kLastPoint + 1>;

std::size_t At(int point) { return static_cast<std::size_t>(point); }

Row TakeRow(const SurfaceGrid& grid, int line) {
  Row row;
  for (int point = 0; point <= kLastPoint; ++point)
    row[At(point)] = {
        grid.SurfaceX(line, point), grid.SurfaceY(line, point), grid.SurfaceZ(line, point), {}};
  return row;
}

double Distance(const StripPoint& a, const StripPoint& b) {
  return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y) +
                   (b.z - a.z) * (b.z - a.z));
}

/// Lays the apex from the base a–b: the angle at a by the three sides, then the bearing.
void LayApex(const StripPoint& a, const StripPoint& b, StripPoint& apex) {
  const double base = Distance(a, b);
  const double arm = Distance(a, apex);
  const double angle = SolveTriangle(Distance(b, apex), arm, base).A;
  const double left = (b.x - a.x) * (apex.y - a.y) - (b.y - a.y) * (apex.x - a.x);
  const double bearing =
      DirectionAngle(a.flat.x, a.flat.y, b.flat.x, b.flat.y) + (left < 0 ? -angle : angle);
  apex.flat = {a.flat.x + arm * std::cos(bearing), a.flat.y + arm * std::sin(bearing)};
}

int WidestRung(const Row& lower, const Row& upper) {
  int widest = kForwardCorner;
  for (int point = kForwardCorner; point <= kAftCorner; ++point)
    if (Distance(lower[At(point)], upper[At(point)]) >
        Distance(lower[At(widest)], upper[At(widest)]))
      widest = point;
  return widest;
}

void LaySeams(Row& lower, Row& upper) {
  const int start = WidestRung(lower, upper);
  upper[At(start)].flat = {0, Distance(lower[At(start)], upper[At(start)])};
  for (int i = start; i < kAftCorner; ++i) {
    LayApex(lower[At(i)], upper[At(i)], lower[At(i + 1)]);
    LayApex(lower[At(i + 1)], upper[At(i)], upper[At(i + 1)]);
  }
  for (int i = start; i > kForwardCorner; --i) {
    LayApex(lower[At(i)], upper[At(i)], upper[At(i - 1)]);
    LayApex(lower[At(i)], upper[At(i - 1)], lower[At(i - 1)]);
  }
}

void LayEdges(const Row& lower, Row& upper) {
  upper[0].flat = lower[At(kForwardCorner)].flat;
  for (int i = 0; i + 2 <= kForwardCorner; ++i)
    LayApex(upper[At(i)], upper[At(kForwardCorner)], upper[At(i + 1)]);
  upper[At(kLastPoint)].flat = lower[At(kAftCorner)].flat;
  for (int i = kLastPoint; i - 2 >= kAftCorner; --i)
    LayApex(upper[At(i)], upper[At(kAftCorner)], upper[At(i - 1)]);
}

/// Shifts and turns the panel so that the chord of its lower seam lies on the x axis.
void Settle(Row& row, PlanePoint origin, double angle, bool mirrored) {
  for (StripPoint& point : row) {
    RotatePoint(origin.x, origin.y, point.flat.x, point.flat.y, -angle);
    point.flat = {point.flat.x - origin.x, point.flat.y - origin.y};
    if (mirrored) point.flat.y = -point.flat.y;
  }
}

}  // namespace

void DevelopPanels(Sail& sail) {
  DevelopedPanels& panels = sail.Panels;
  for (int p = 0; p < sail.Definition.PanelCount; ++p) {
    Row lower = TakeRow(sail.Grid, p);
    Row upper = TakeRow(sail.Grid, p + 1);
    LaySeams(lower, upper);
    LayEdges(lower, upper);
    const PlanePoint origin = lower[At(kForwardCorner)].flat;
    const PlanePoint end = lower[At(kAftCorner)].flat;
    const double angle = DirectionAngle(origin.x, origin.y, end.x, end.y);
    const bool mirrored = sail.Definition.CutType == kVerticalCut;
    Settle(lower, origin, angle, mirrored);
    Settle(upper, origin, angle, mirrored);
    FlatPanel panel;
    for (int point = 0; point <= kLastPoint; ++point) {
      panel.Lower[At(point)] = lower[At(point)].flat;
      panel.Upper[At(point)] = panel.Edge[At(point)] = upper[At(point)].flat;
    }
    DrawGuideLine(panel, sail.Definition.SeamWidth, p == sail.Definition.PanelCount - 1);
    for (int point = 0; point <= kLastPoint; ++point) {
      if (point >= kForwardCorner && point <= kAftCorner) {
        panels.PanelLowerX(p, point) = panel.Lower[At(point)].x;
        panels.PanelLowerY(p, point) = panel.Lower[At(point)].y;
        panels.PanelUpperX(p, point) = panel.Upper[At(point)].x;
        panels.PanelUpperY(p, point) = panel.Upper[At(point)].y;
      }
      panels.PanelEdgeX(p, point) = panel.Edge[At(point)].x;
      panels.PanelEdgeY(p, point) = panel.Edge[At(point)].y;
    }
  }
}

double DevelopedWidth(const DevelopedPanels& panels, int p) {
  double width = panels.PanelUpperY(p, kForwardCorner);
  for (int point = kForwardCorner + 1; point <= kAftCorner; ++point)
    width = std::max(width, panels.PanelUpperY(p, point));
  return width;
}

}  // namespace brivane
