#include "panels/layout_check.h"

#include <cmath>
#include <vector>

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

PlanePoint PointOf(const SurfaceGrid& grid, int line, int point) {
  return {grid.SurfaceX(line, point), grid.SurfaceY(line, point)};
}

/// The strip's outline in the plane: lower seam from forward to aft, aft edge, upper seam back,
/// forward edge. Corners are not repeated.
void CollectOutline(const SurfaceGrid& grid, int p, std::vector<PlanePoint>& outline) {
  outline.clear();
  const auto add = [&](int line, int point) {
    const PlanePoint at = PointOf(grid, line, point);
    if (outline.empty() || !(at == outline.back())) outline.push_back(at);
  };
  for (int point = kForwardCorner; point <= kAftCorner; ++point) add(p, point);
  for (int point = kLastPoint; point >= 0; --point) add(p + 1, point);
  while (outline.size() > 1 && outline.front() == outline.back()) outline.pop_back();
}

double SignedArea(const std::vector<PlanePoint>& outline) {
  double twice = 0;
  for (std::size_t i = 2; i < outline.size(); ++i)
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

bool CrossesItself(const std::vector<PlanePoint>& outline) {
  const std::size_t count = outline.size();
  for (std::size_t i = 0; i + 2 < count; ++i)
    for (std::size_t k = i + 2; k < count; ++k) {
      if (i == 0 && k + 1 == count) continue;  // neighbours round the corner
      if (SegmentsCross(outline[i], outline[i + 1], outline[k], outline[(k + 1) % count]))
        return true;
    }
  return false;
}

}  // namespace

void RequireCuttableStrips(const SurfaceGrid& grid, int panelCount) {
  std::vector<PlanePoint> outline;
  outline.reserve(2 * (kLastPoint + 1));
  double firstSign = 0;
  for (int p = 0; p < panelCount; ++p) {
    CollectOutline(grid, p, outline);
    const double area = SignedArea(outline);
    if (p == 0) firstSign = area > 0 ? 1 : -1;
    if (area * firstSign <= kAreaTolerance || CrossesItself(outline))
      throw GeometryFault(kOverlapWords);
  }
}

}  // namespace brivane
