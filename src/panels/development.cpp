#include "panels/development.h"

#include <algorithm>
#include <cmath>

#include "geometry/faults.h"
#include "panels/flat_panel.h"

namespace brivane {
namespace {

/// A triangle whose plan is this much smaller than itself stands upright: its plan says nothing
/// about the side on which to lay it.
constexpr double kUpright = 1e-6;

/// A base whose length to the fourth (mm⁴) is smaller gives no direction.
constexpr double kNoBase = 1e-36;

struct Vector3 {
  double x = 0, y = 0, z = 0;
};

Vector3 operator-(const Vector3& a, const Vector3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
double Dot(const Vector3& a, const Vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
double Length(const Vector3& a) { return std::sqrt(Dot(a, a)); }
Vector3 CrossProduct(const Vector3& a, const Vector3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// A point of the strip: where it stands on the surface and where it has been laid.
struct StripPoint {
  Vector3 space;
  PlanePoint flat;
};

/// The points of one strip between two lines of the grid.
struct Strip {
  std::array<StripPoint, kLastPoint + 1> lower;  ///< 5 to 35
  std::array<StripPoint, kLastPoint + 1> upper;  ///< 5 to 35
  std::array<StripPoint, kLastPoint + 1> edge;   ///< 0 to 5 and 35 to 40
};

Vector3 SpacePoint(const SurfaceGrid& grid, int line, int point) {
  return {grid.SurfaceX(line, point), grid.SurfaceY(line, point), grid.SurfaceZ(line, point)};
}

std::size_t At(int point) { return static_cast<std::size_t>(point); }

Strip TakeStrip(const SurfaceGrid& grid, int p) {
  Strip strip;
  for (int point = kForwardCorner; point <= kAftCorner; ++point) {
    strip.lower[At(point)].space = SpacePoint(grid, p, point);
    strip.upper[At(point)].space = SpacePoint(grid, p + 1, point);
  }
  for (int point = 0; point <= kLastPoint; ++point)
    if (point <= kForwardCorner || point >= kAftCorner)
      strip.edge[At(point)].space = SpacePoint(grid, p + 1, point);
  return strip;
}

/// Lays the apex of the triangle (a, b, apex) from the base a–b.
/// Distances along and across the base come from dot and cross products, so that nothing cancels.
/// `upright` is the side for a triangle that stands upright.
void LayApex(const StripPoint& a, const StripPoint& b, StripPoint& apex, double upright) {
  const Vector3 base = b.space - a.space;
  const Vector3 arm = apex.space - a.space;
  const PlanePoint flatBase = b.flat - a.flat;
  // Over both lengths of the base, so that the arm keeps its own whatever the base has lost.
  const double squares = Dot(base, base) * Dot(flatBase, flatBase);
  if (!(squares > kNoBase)) {  // two points in one place: the arm takes the axis' direction
    apex.flat = a.flat + PlanePoint{Length(arm), 0};
    return;
  }
  const Vector3 normal = CrossProduct(base, arm);
  const double area = Length(normal);
  const double side = std::abs(normal.z) > kUpright * area ? normal.z : upright;
  const double scale = 1 / std::sqrt(squares);
  const double along = Dot(base, arm) * scale;
  const double across = std::copysign(area, side) * scale;
  apex.flat = a.flat + along * flatBase + across * PlanePoint{-flatBase.y, flatBase.x};
}

/// The widest rung of the strip: the two seams may meet at its ends, but not there.
int WidestRung(const Strip& strip) {
  int widest = kForwardCorner;
  double width = -1;
  for (int point = kForwardCorner; point <= kAftCorner; ++point) {
    const Vector3 rung = strip.upper[At(point)].space - strip.lower[At(point)].space;
    if (Dot(rung, rung) > width) {
      width = Dot(rung, rung);
      widest = point;
    }
  }
  return widest;
}

/// Lays the first rung in the orientation that all panels of a sail start with.
void LayFirstRung(StripPoint& lower, StripPoint& upper, double leechAngle) {
  constexpr double kStartTurn = 1.57079;  // deliberately five decimals of a quarter turn
  const double bearing =
      DirectionAngle(lower.space.x, lower.space.y, upper.space.x, upper.space.y) - leechAngle -
      kStartTurn;
  lower.flat = {0, 0};
  upper.flat = Length(upper.space - lower.space) * PlanePoint{std::cos(bearing), std::sin(bearing)};
}

/// Lays the two triangles aft of a rung that lies. Every quadrangle is split from its upper forward
/// to its lower aft corner, whichever way it is reached.
void LayAft(Strip& strip, int rung, double upright) {
  LayApex(strip.lower[At(rung)], strip.upper[At(rung)], strip.lower[At(rung + 1)], upright);
  LayApex(strip.lower[At(rung + 1)], strip.upper[At(rung)], strip.upper[At(rung + 1)], upright);
}

/// Lays the two triangles forward of a rung that lies.
void LayForward(Strip& strip, int rung, double upright) {
  LayApex(strip.lower[At(rung)], strip.upper[At(rung)], strip.upper[At(rung - 1)], upright);
  LayApex(strip.lower[At(rung)], strip.upper[At(rung - 1)], strip.lower[At(rung - 1)], upright);
}

/// Lays an edge piece as a fan about its upper corner, from its lower corner on.
void LayEdgeFan(Strip& strip, int lowerEnd, int upperEnd, const StripPoint& lowerCorner,
                const StripPoint& upperCorner, double upright) {
  strip.edge[At(lowerEnd)].flat = lowerCorner.flat;
  strip.edge[At(upperEnd)].flat = upperCorner.flat;
  const int step = lowerEnd < upperEnd ? 1 : -1;
  for (int point = lowerEnd; point + step != upperEnd; point += step)
    LayApex(strip.edge[At(point)], upperCorner, strip.edge[At(point + step)], upright);
}

/// 1 where the strip lies to the right of its rungs going aft (upper seam to the left of the
/// lower one), −1 where it is mirrored.
double PlanSide(const Strip& strip, int rung) {
  const int next = rung < kAftCorner ? rung + 1 : rung;
  const int before = rung < kAftCorner ? rung : rung - 1;
  const Vector3 seam = strip.lower[At(next)].space - strip.lower[At(before)].space;
  const Vector3 across = strip.upper[At(rung)].space - strip.lower[At(rung)].space;
  return CrossProduct(seam, across).z < 0 ? -1 : 1;
}

void LayStrip(Strip& strip, double leechAngle) {
  const int start = WidestRung(strip);
  const double side = PlanSide(strip, start);
  LayFirstRung(strip.lower[At(start)], strip.upper[At(start)], leechAngle);
  // Going aft from a rung (lower to upper) the strip lies on its right; going forward on its left.
  for (int rung = start; rung < kAftCorner; ++rung) LayAft(strip, rung, -side);
  for (int rung = start; rung > kForwardCorner; --rung) LayForward(strip, rung, side);
  LayEdgeFan(strip, 0, kForwardCorner, strip.lower[At(kForwardCorner)],
             strip.upper[At(kForwardCorner)], side);
  LayEdgeFan(strip, kLastPoint, kAftCorner, strip.lower[At(kAftCorner)],
             strip.upper[At(kAftCorner)], -side);
}

/// Turns and shifts the panel into its own frame and, where its upper seam lies below, mirrors it.
FlatPanel Settle(const Strip& strip) {
  const PlanePoint origin = strip.lower[At(kForwardCorner)].flat;
  // The bearing of the chord by its cosine and sine, so that no digit of an angle is lost.
  const PlanePoint chord = strip.lower[At(kAftCorner)].flat - origin;
  const double length = Length(chord);
  const double cosine = length > 0 ? chord.x / length : 1;
  const double sine = length > 0 ? chord.y / length : 0;
  const auto turned = [&](const StripPoint& point) {
    const PlanePoint d = point.flat - origin;
    return PlanePoint{d.x * cosine + d.y * sine, d.y * cosine - d.x * sine};
  };
  FlatPanel panel;
  double rise = 0;
  for (int point = kForwardCorner; point <= kAftCorner; ++point) {
    panel.Lower[At(point)] = turned(strip.lower[At(point)]);
    panel.Upper[At(point)] = turned(strip.upper[At(point)]);
    rise += panel.Upper[At(point)].y - panel.Lower[At(point)].y;
  }
  for (int point = 0; point <= kLastPoint; ++point)
    panel.Edge[At(point)] = turned(strip.edge[At(point)]);
  // The chord lies on the axis; what the turn leaves there is rounding.
  panel.Lower[At(kAftCorner)].y = panel.Edge[At(kLastPoint)].y = 0;
  if (rise < 0)
    for (FlatPanel::Points* points : {&panel.Lower, &panel.Upper, &panel.Edge})
      for (PlanePoint& point : *points) point.y = 0 - point.y;
  return panel;
}

void Store(const FlatPanel& panel, int p, DevelopedPanels& panels) {
  const auto put = [p](const PlanePoint& at, int point, PanelTable& x, PanelTable& y) {
    RequireFinite(at.x);
    RequireFinite(at.y);
    x(p, point) = at.x;
    y(p, point) = at.y;
  };
  for (int point = kForwardCorner; point <= kAftCorner; ++point) {
    put(panel.Lower[At(point)], point, panels.PanelLowerX, panels.PanelLowerY);
    put(panel.Upper[At(point)], point, panels.PanelUpperX, panels.PanelUpperY);
  }
  for (int point = 0; point <= kLastPoint; ++point)
    put(panel.Edge[At(point)], point, panels.PanelEdgeX, panels.PanelEdgeY);
}

}  // namespace

void DevelopPanels(Sail& sail) {
  const SailDefinition& definition = sail.Definition;
  for (int p = 0; p < definition.PanelCount; ++p) {
    Strip strip = TakeStrip(sail.Grid, p);
    LayStrip(strip, definition.LeechAngle);
    FlatPanel panel = Settle(strip);
    DrawGuideLine(panel, definition.SeamWidth, p == definition.PanelCount - 1);
    Store(panel, p, sail.Panels);
  }
}

double DevelopedWidth(const DevelopedPanels& panels, int p) {
  double width = panels.PanelUpperY(p, kForwardCorner);
  for (int point = kForwardCorner + 1; point <= kAftCorner; ++point)
    width = std::max(width, panels.PanelUpperY(p, point));
  return width;
}

}  // namespace brivane
