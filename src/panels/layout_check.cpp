#include "panels/layout_check.h"

#include <algorithm>
#include <array>
#include <utility>

#include "geometry/plane.h"
#include "model/failures.h"

namespace brivane {
namespace {

constexpr BilingualText kOverlapWords{
    "The panels of this sail would overlap. Please check the rounds, the corners and the cloth "
    "width, or choose another cut.",
    "Les laizes de cette voile se chevaucheraient. Veuillez vérifier les ronds, les coins et la "
    "largeur du tissu, ou choisir une autre coupe."};

/// Twice the area (mm²) below which three points count as lying on one line.
constexpr double kAreaTolerance = 1e-6;

/// Points of a closed outline, none of them like the one before.
struct Outline {
  std::array<PlanePoint, 2 * (kLastPoint + 1)> Points;
  std::size_t Count = 0;

  const PlanePoint& operator[](std::size_t i) const { return Points[i]; }
  std::size_t After(std::size_t i) const { return i + 1 < Count ? i + 1 : 0; }
  std::size_t Before(std::size_t i) const { return i > 0 ? i - 1 : Count - 1; }
  void Add(PlanePoint at) {
    if (Count == 0 || !(at == Points[Count - 1])) Points[Count++] = at;
  }
};

/// The strip's outline in the plane: lower seam from forward to aft, aft edge, upper seam back,
/// forward edge.
Outline OutlineOf(const SurfaceGrid& grid, int p) {
  Outline outline;
  const double* x = grid.SurfaceX.Points(p);
  const double* y = grid.SurfaceY.Points(p);
  for (int i = kForwardCorner; i <= kAftCorner; ++i) outline.Add({x[i], y[i]});
  x = grid.SurfaceX.Points(p + 1);
  y = grid.SurfaceY.Points(p + 1);
  for (int i = kLastPoint; i >= 0; --i) outline.Add({x[i], y[i]});
  while (outline.Count > 1 && outline[0] == outline[outline.Count - 1]) --outline.Count;
  return outline;
}

double SignedArea(const Outline& outline) {
  double twice = 0;
  for (std::size_t i = 2; i < outline.Count; ++i)
    twice += Cross(outline[i - 1] - outline[0], outline[i] - outline[0]);
  return twice / 2;
}

bool OppositeSides(double left, double right) {
  return (left > kAreaTolerance && right < -kAreaTolerance) ||
         (left < -kAreaTolerance && right > kAreaTolerance);
}

bool SegmentsCross(PlanePoint a, PlanePoint b, PlanePoint c, PlanePoint d) {
  return OppositeSides(Cross(b - a, c - a), Cross(b - a, d - a)) &&
         OppositeSides(Cross(d - c, a - c), Cross(d - c, b - c));
}

/// Whether two edges, each named by its first point, cross. Neighbours do not.
bool EdgesCross(const Outline& outline, std::size_t i, std::size_t k) {
  if (i > k) std::swap(i, k);
  if (k == outline.After(i) || i == outline.After(k)) return false;
  return SegmentsCross(outline[i], outline[i + 1], outline[k], outline[outline.After(k)]);
}

bool AnyEdgesCross(const Outline& outline) {
  for (std::size_t i = 0; i + 2 < outline.Count; ++i)
    for (std::size_t k = i + 2; k < outline.Count; ++k)
      if (EdgesCross(outline, i, k)) return true;
  return false;
}

/// An outline of two chains, neither of which turns back along one axis: only edges of both that
/// lie at the same place of the axis can cross.
class TwoChains {
 public:
  /// Along the axis in which the outline is longest.
  explicit TwoChains(const Outline& outline) : outline_(outline) {
    const auto [left, right] = ReachAlong(&PlanePoint::x);
    const auto [low, high] = ReachAlong(&PlanePoint::y);
    const bool across = right - left >= high - low;
    axis_ = across ? &PlanePoint::x : &PlanePoint::y;
    extent_ = across ? right - left : high - low;
    first_ = Find(across ? left : low);
    last_ = Find(across ? right : high);
  }

  /// False where a chain turns back, or where the outline is so large that rounding could be taken
  /// for a crossing.
  bool Hold() const {
    // The areas compared are exact to 8 · 2^-53 of the extent's square.
    constexpr double kGreatestExtent = 3e4;  // mm
    if (!(extent_ <= kGreatestExtent)) return false;
    for (std::size_t i = first_; i != last_; i = outline_.After(i))
      if (At(outline_.After(i)) < At(i)) return false;
    for (std::size_t i = last_; i != first_; i = outline_.After(i))
      if (At(outline_.After(i)) > At(i)) return false;
    return true;
  }

  bool Meet() const {
    std::size_t there = first_;  // the chain that goes on from the first point
    std::size_t back = first_;   // the chain that comes back to it, walked backwards
    while (there != last_ && back != last_) {
      if (EdgesCross(outline_, there, outline_.Before(back))) return true;
      const std::size_t nextThere = outline_.After(there);
      const std::size_t nextBack = outline_.Before(back);
      if (At(nextThere) <= At(nextBack))
        there = nextThere;
      else
        back = nextBack;
    }
    return false;
  }

 private:
  double At(std::size_t i) const { return outline_[i].*axis_; }

  std::pair<double, double> ReachAlong(double PlanePoint::*axis) const {
    double least = outline_[0].*axis;
    double greatest = least;
    for (std::size_t i = 1; i < outline_.Count; ++i) {
      least = std::min(least, outline_[i].*axis);
      greatest = std::max(greatest, outline_[i].*axis);
    }
    return {least, greatest};
  }

  std::size_t Find(double place) const {
    std::size_t i = 0;
    while (At(i) != place) ++i;
    return i;
  }

  const Outline& outline_;
  double PlanePoint::*axis_;
  std::size_t first_, last_;
  double extent_;
};

bool CrossesItself(const Outline& outline) {
  const TwoChains chains(outline);
  return chains.Hold() ? chains.Meet() : AnyEdgesCross(outline);
}

}  // namespace

void RequireCuttableStrips(const SurfaceGrid& grid, int panelCount) {
  double firstSign = 0;
  for (int p = 0; p < panelCount; ++p) {
    const Outline outline = OutlineOf(grid, p);
    const double area = SignedArea(outline);
    if (p == 0) firstSign = area > 0 ? 1 : -1;
    if (area * firstSign <= kAreaTolerance || CrossesItself(outline))
      throw GeometryFault(kOverlapWords);
  }
}

}  // namespace brivane
