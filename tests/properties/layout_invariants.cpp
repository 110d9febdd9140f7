#include "properties/layout_invariants.h"

#include <cmath>
#include <vector>

#include "panels/development.h"
#include "support/panel_measures.h"

namespace brivane {
namespace {

PlanePoint At(const SurfaceGrid& grid, int line, int point) {
  return {grid.SurfaceX(line, point), grid.SurfaceY(line, point)};
}

/// The boundary of all strips together: line 0, the aft pieces, the last line, the forward pieces.
double RingArea(const SurfaceGrid& grid, int count) {
  std::vector<PlanePoint> ring;
  AppendLinePoints(ring, grid, 0, 5, 35);
  for (int line = 1; line <= count; ++line) AppendLinePoints(ring, grid, line, 40, 35);
  AppendLinePoints(ring, grid, count, 35, 5);
  for (int line = count; line >= 1; --line) AppendLinePoints(ring, grid, line, 5, 0);
  return ShoelaceArea(ring);
}

bool AllFinite(const Sail& sail) {
  for (int line = 0; line <= sail.Definition.PanelCount; ++line)
    for (int point = 0; point <= 40; ++point)
      if (!std::isfinite(sail.Grid.SurfaceX(line, point)) ||
          !std::isfinite(sail.Grid.SurfaceY(line, point)) ||
          !std::isfinite(sail.Grid.SurfaceZ(line, point)))
        return false;
  const DevelopedPanels& flat = sail.Panels;
  for (int p = 0; p < sail.Definition.PanelCount; ++p)
    for (int point = 0; point <= 40; ++point)
      for (const PanelTable* table : {&flat.PanelLowerX, &flat.PanelLowerY, &flat.PanelUpperX,
                                      &flat.PanelUpperY, &flat.PanelEdgeX, &flat.PanelEdgeY})
        if (!std::isfinite((*table)(p, point))) return false;
  return true;
}

/// Whether the straight seams of lines k and k + 1 cross inside both.
bool SeamsCross(const SurfaceGrid& grid, int k) {
  const PlanePoint a = At(grid, k, 5), b = At(grid, k, 35);
  const PlanePoint c = At(grid, k + 1, 5), d = At(grid, k + 1, 35);
  const double tolerance = 1e-9 * Dot(b - a, b - a);
  const double left = Cross(b - a, c - a), right = Cross(b - a, d - a);
  const double other = Cross(d - c, a - c), more = Cross(d - c, b - c);
  return std::min(left, right) < -tolerance && std::max(left, right) > tolerance &&
         std::min(other, more) < -tolerance && std::max(other, more) > tolerance;
}

/// Step from seam k to seam k + 1 as it was stepped off; the raised seams of the twist-foot cut
/// are not square to the leech and are not measured.
double StepAfter(const Sail& sail, int k) {
  const SailDefinition& d = sail.Definition;
  PlanePoint direction{-std::sin(d.LeechAngle), std::cos(d.LeechAngle)};
  if (d.CutType == kVerticalCut) {
    const double share = std::cos(d.LeechAngle - d.FootAngle);
    direction = {-std::cos(d.LeechAngle) / share, -std::sin(d.LeechAngle) / share};
  }
  return Dot(direction, At(sail.Grid, k + 1, 35) - At(sail.Grid, k, 35));
}

/// Greatest coordinate of the grid, mm: rounding grows with it.
double Size(const Sail& sail) {
  double size = 0;
  for (int line = 0; line <= sail.Definition.PanelCount; ++line)
    for (int point = 0; point <= 40; ++point)
      size = std::max({size, std::abs(sail.Grid.SurfaceX(line, point)),
                       std::abs(sail.Grid.SurfaceY(line, point)),
                       std::abs(sail.Grid.SurfaceZ(line, point))});
  return size;
}

std::string BrokenByStrips(const Sail& sail) {
  const int count = sail.Definition.PanelCount;
  const double sign = StripPlanArea(sail.Grid, 0) > 0 ? 1 : -1;
  double sum = 0;
  for (int p = 0; p < count; ++p) {
    const double area = sign * StripPlanArea(sail.Grid, p);
    if (!(area > 0)) return "strip " + std::to_string(p) + " has no positive area";
    sum += area;
  }
  const double ring = sign * RingArea(sail.Grid, count);
  if (std::abs(sum - ring) > 1e-9 * std::abs(ring)) return "the strips do not tile the boundary";
  for (int k = 1; k + 1 < count; ++k)
    if (SeamsCross(sail.Grid, k)) return "seams cross at line " + std::to_string(k);
  return "";
}

std::string BrokenByLines(const Sail& sail) {
  const int count = sail.Definition.PanelCount;
  const bool vertical = sail.Definition.CutType == kVerticalCut;
  for (int k = 0; k <= count; ++k) {
    const double code = sail.Grid.SurfaceX(k, -1);
    if (code != 0 && code != 1 && code != 2) return "no edge code at line " + std::to_string(k);
    if (k == 0) continue;
    const double before = sail.Grid.SurfaceX(k - 1, -1);
    if (vertical ? code > before : code < before) return "codes go back at " + std::to_string(k);
  }
  if (sail.Definition.CutType == kTwistFootCut) return "";
  for (int k = 0; k + 2 <= count; ++k)
    if (k > 0 && StepAfter(sail, k) < 40 - 1e-6 && k + 1 < count)
      return "step below 40 mm at line " + std::to_string(k);
  return "";
}

std::string BrokenByDevelopment(const Sail& sail, const DesignResult& result) {
  const double tolerance = 1e-8 + 1e-12 * Size(sail);
  for (int p = 0; p < sail.Definition.PanelCount; ++p) {
    const double error = WorstEdgeError(sail, p);
    if (!(error <= tolerance))
      return "an edge of panel " + std::to_string(p) + " is off by " + std::to_string(error);
    if (result.End == DesignEnd::Fitted &&
        DevelopedWidth(sail.Panels, p) > sail.Definition.ClothWidth)
      return "panel " + std::to_string(p) + " is wider than the cloth";
  }
  return "";
}

}  // namespace

std::string BrokenInvariant(const Sail& sail, const DesignResult& result) {
  if (sail.Definition.PanelCount < 1 || sail.Definition.PanelCount > kMostPanels)
    return "panel count " + std::to_string(sail.Definition.PanelCount);
  if (!AllFinite(sail)) return "a coordinate is not finite";
  for (const std::string& broken :
       {BrokenByStrips(sail), BrokenByLines(sail), BrokenByDevelopment(sail, result)})
    if (!broken.empty()) return broken;
  return "";
}

}  // namespace brivane
