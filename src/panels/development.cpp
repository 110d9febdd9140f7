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

/// A base whose square (mm²) is not above this gives no direction.
constexpr double kNoBase = 1e-18;

// The triangles of a strip as one chain of bases, each of which has one triangle in common with the
// next: the inner rays of the forward edge's fan about the upper corner, then rung, diagonal, rung
// and so on going aft (every quadrangle is split from its upper forward to its lower aft corner),
// then the inner rays of the aft edge's fan.
constexpr int kSteps = kAftCorner - kForwardCorner;
constexpr int kRays = kForwardCorner - 1;
constexpr int kFirstRung = kRays;
constexpr int kLastRung = kFirstRung + 2 * kSteps;
constexpr int kBases = kLastRung + kRays + 1;
constexpr int kTurns = kBases - 1;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

/// The bases on the surface, mm. Each coordinate stands in an array of its own, and their number is
/// even (the last is 0), so that the compiler computes two bases at once.
struct Bases {
  using Coordinates = std::array<double, kBases + 1>;
  Coordinates X, Y, Z;
  Coordinates Square;  ///< of the length
};

/// How each base turns into the next, as a complex number with the product of their lengths: their
/// dot product and twice the area of their triangle, positive to the left.
struct Turns {
  std::array<double, kTurns> Along, Across;
};

/// The bases laid flat, mm.
struct FlatBases {
  std::array<double, kBases> X, Y;

  PlanePoint operator[](int base) const { return {X[At(base)], Y[At(base)]}; }
  void Put(std::size_t base, PlanePoint at) { X[base] = at.x, Y[base] = at.y; }
};

/// One coordinate of the bases between two lines of the grid; the edges stand in the upper one's.
void TakeCoordinate(const double* lower, const double* upper,
                    Bases::Coordinates& __restrict bases) {
  for (int ray = 1; ray <= kRays; ++ray) {
    bases[At(kFirstRung - ray)] = upper[kForwardCorner] - upper[ray];
    bases[At(kLastRung + ray)] = upper[kAftCorner] - upper[kLastPoint - ray];
  }
  for (int step = 0; step < kSteps; ++step) {
    const int point = kForwardCorner + step;
    bases[At(kFirstRung + 2 * step)] = upper[point] - lower[point];
    bases[At(kFirstRung + 2 * step + 1)] = lower[point + 1] - upper[point];
  }
  bases[At(kLastRung)] = upper[kAftCorner] - lower[kAftCorner];
  bases[kBases] = 0;
}

Bases TakeBases(const SurfaceGrid& grid, int p) {
  Bases bases;
  TakeCoordinate(grid.SurfaceX.Points(p), grid.SurfaceX.Points(p + 1), bases.X);
  TakeCoordinate(grid.SurfaceY.Points(p), grid.SurfaceY.Points(p + 1), bases.Y);
  TakeCoordinate(grid.SurfaceZ.Points(p), grid.SurfaceZ.Points(p + 1), bases.Z);
  const auto& [x, y, z, unused] = bases;
  for (std::size_t i = 0; i < bases.Square.size(); ++i)
    bases.Square[i] = x[i] * x[i] + y[i] * y[i] + z[i] * z[i];
  return bases;
}

/// The widest rung of the strip: the two seams may meet at its ends, but not there.
std::size_t WidestRung(const Bases& bases) {
  std::size_t widest = kFirstRung;
  double square = -1;
  for (std::size_t rung = kFirstRung; rung <= kLastRung; rung += 2) {
    if (!(bases.Square[rung] > square)) continue;
    square = bases.Square[rung];
    widest = rung;
  }
  return widest;
}

/// 1 where the upper seam lies to the left of the lower one going aft, −1 where it is mirrored.
double PlanSide(const Bases& bases, std::size_t rung) {
  // A rung turns right into the diagonal aft of it, and the diagonal forward of it left into it.
  const bool last = rung == kLastRung;
  const std::size_t i = last ? rung - 1 : rung;
  const double left = bases.X[i] * bases.Y[i + 1] - bases.Y[i] * bases.X[i + 1];
  return (last ? left : -left) < 0 ? -1 : 1;
}

/// The side to which each base turns in the plan of a strip that is not mirrored.
constexpr std::array<double, kTurns> kUsualSides = [] {
  std::array<double, kTurns> sides{};
  for (int i = 0; i < kTurns; ++i) {
    const bool isRung = i >= kFirstRung && i < kLastRung && i % 2 == 0;
    sides[static_cast<std::size_t>(i)] = isRung ? -1 : 1;
  }
  return sides;
}();

/// From dot and cross products, so that nothing cancels. Each triangle turns to the side of its
/// plan, or as the strip does where it stands upright. No turn waits for another.
Turns MeasureTurns(const Bases& bases, double side) {
  const auto& [x, y, z, unused] = bases;
  Turns turns;
  for (std::size_t i = 0; i < kTurns; ++i) {
    const double normalX = y[i] * z[i + 1] - z[i] * y[i + 1];
    const double normalY = z[i] * x[i + 1] - x[i] * z[i + 1];
    const double normalZ = x[i] * y[i + 1] - y[i] * x[i + 1];
    const double area = std::sqrt(normalX * normalX + normalY * normalY + normalZ * normalZ);
    turns.Along[i] = x[i] * x[i + 1] + y[i] * y[i + 1] + z[i] * z[i + 1];
    turns.Across[i] = std::copysign(area, normalZ + side * kUsualSides[i] * (kUpright * area));
  }
  return turns;
}

/// The product of two vectors as complex numbers: lengths multiply, bearings add.
inline PlanePoint Turned(PlanePoint a, PlanePoint turn) {
  return {a.x * turn.x - a.y * turn.y, a.y * turn.x + a.x * turn.y};
}

/// The first rung laid in the orientation that all panels of a sail start with: at its bearing in
/// the plan, turned by startTurn (a unit vector).
PlanePoint LayFirstRung(const Bases& bases, std::size_t rung, PlanePoint startTurn) {
  const PlanePoint plan{bases.X[rung], bases.Y[rung]};
  const double length = Length(plan);
  const double scale = std::sqrt(bases.Square[rung]) / (length > 0 ? length : 1);
  const PlanePoint flat = scale * (length > 0 ? plan : PlanePoint{1, 0});
  return Turned(flat, startTurn);
}

/// The neighbour of a base that lies. `turn` leads from the one to the other.
inline PlanePoint LayNeighbour(PlanePoint base, double square, PlanePoint turn,
                               double neighbourSquare) {
  // Two points in one place: the neighbour takes the axis' direction.
  if (!(square > kNoBase)) return {std::sqrt(neighbourSquare), 0};
  return Turned(base, (1 / square) * turn);
}

/// Lays the bases aft and forward of a first one, in turns: a base waits for its neighbour, but not
/// for those on the other side. Every base keeps its own length, whatever its neighbour has lost.
FlatBases LayBases(const Bases& bases, const Turns& turns, std::size_t start, PlanePoint first) {
  FlatBases flat;
  flat.Put(start, first);
  PlanePoint aft = first;
  PlanePoint forward = first;
  for (std::size_t a = start, f = start; a < kTurns || f > 0;) {
    if (a < kTurns) {
      const PlanePoint turn{turns.Along[a], turns.Across[a]};
      aft = LayNeighbour(aft, bases.Square[a], turn, bases.Square[a + 1]);
      flat.Put(++a, aft);
    }
    if (f > 0) {
      const PlanePoint back{turns.Along[f - 1], -turns.Across[f - 1]};
      forward = LayNeighbour(forward, bases.Square[f], back, bases.Square[f - 1]);
      flat.Put(--f, forward);
    }
  }
  return flat;
}

/// Joins the bases to a panel whose lower seam starts at (0, 0).
void JoinBases(const FlatBases& flat, FlatPanel& panel) {
  PlanePoint next{0, 0};
  for (int point = kForwardCorner; point <= kAftCorner; ++point) {
    const int rung = kFirstRung + 2 * (point - kForwardCorner);
    panel.Lower[At(point)] = next;
    panel.Upper[At(point)] = next + flat[rung];
    next = panel.Upper[At(point)] + flat[rung + 1];  // not in use after the last rung
  }
  panel.Edge[0] = panel.Lower[kForwardCorner];
  panel.Edge[kLastPoint] = panel.Lower[kAftCorner];
  for (int ray = 1; ray <= kRays; ++ray) {
    panel.Edge[At(ray)] = panel.Upper[kForwardCorner] - flat[kFirstRung - ray];
    panel.Edge[At(kLastPoint - ray)] = panel.Upper[kAftCorner] - flat[kLastRung + ray];
  }
}

/// Turns the panel until the chord of its lower seam lies on the x axis and mirrors it where its
/// upper seam lies below.
void Settle(const FlatBases& flat, FlatPanel& panel) {
  // The bearing of the chord by its cosine and sine, so that no digit of an angle is lost.
  const PlanePoint chord = panel.Lower[kAftCorner];
  const double length = Length(chord);
  const PlanePoint axis = length > 0 ? (1 / length) * chord : PlanePoint{1, 0};
  PlanePoint rungs{0, 0};
  for (int rung = kFirstRung; rung <= kLastRung; rung += 2) rungs = rungs + flat[rung];
  const PlanePoint across = (Cross(axis, rungs) < 0 ? -1.0 : 1.0) * PlanePoint{-axis.y, axis.x};
  const auto turn = [axis, across](PlanePoint& point) {
    point = {Dot(axis, point), Dot(across, point)};
  };
  for (int point = kForwardCorner; point <= kAftCorner; ++point) {
    turn(panel.Lower[At(point)]);
    turn(panel.Upper[At(point)]);
  }
  for (int point = 0; point < kForwardCorner; ++point) {
    turn(panel.Edge[At(point)]);
    turn(panel.Edge[At(kLastPoint - point)]);
  }
  // The chord lies on the axis; what the turn leaves there is rounding.
  panel.Lower[kAftCorner].y = panel.Edge[kLastPoint].y = 0;
  panel.Edge[kForwardCorner] = panel.Upper[kForwardCorner];
  panel.Edge[kAftCorner] = panel.Upper[kAftCorner];
}

/// Puts points first to last into their rows. Returns a sum that is not finite where one of them is
/// not.
double Put(const FlatPanel::Points& points, int first, int last, double* x, double* y) {
  PlanePoint sum{0, 0};
  for (int point = first; point <= last; ++point) {
    const PlanePoint at = points[At(point)];
    sum = sum + at;
    x[point] = at.x;
    y[point] = at.y;
  }
  return sum.x + sum.y;
}

void Store(const FlatPanel& panel, int p, DevelopedPanels& panels) {
  const double lower = Put(panel.Lower, kForwardCorner, kAftCorner, panels.PanelLowerX.Points(p),
                           panels.PanelLowerY.Points(p));
  const double upper = Put(panel.Upper, kForwardCorner, kAftCorner, panels.PanelUpperX.Points(p),
                           panels.PanelUpperY.Points(p));
  const double edge =
      Put(panel.Edge, 0, kLastPoint, panels.PanelEdgeX.Points(p), panels.PanelEdgeY.Points(p));
  RequireFinite(lower + upper + edge);
}

}  // namespace

void DevelopPanels(Sail& sail) {
  constexpr double kStartTurn = 1.57079;  // deliberately five decimals of a quarter turn
  const SailDefinition& definition = sail.Definition;
  const double start = -definition.LeechAngle - kStartTurn;
  const PlanePoint startTurn{std::cos(start), std::sin(start)};
  FlatPanel panel;
  for (int p = 0; p < definition.PanelCount; ++p) {
    const Bases bases = TakeBases(sail.Grid, p);
    const std::size_t rung = WidestRung(bases);
    const Turns turns = MeasureTurns(bases, PlanSide(bases, rung));
    const FlatBases flat = LayBases(bases, turns, rung, LayFirstRung(bases, rung, startTurn));
    JoinBases(flat, panel);
    Settle(flat, panel);
    DrawGuideLine(panel, definition.SeamWidth, p == definition.PanelCount - 1);
    Store(panel, p, sail.Panels);
  }
}

double DevelopedWidth(const DevelopedPanels& panels, int p) {
  const double* y = panels.PanelUpperY.Points(p);
  return *std::max_element(y + kForwardCorner, y + kAftCorner + 1);
}

}  // namespace brivane
