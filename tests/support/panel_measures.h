#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "geometry/plane.h"
#include "model/sail.h"

// Measures of grids and developed panels that several tests take.

namespace brivane {

/// Three-dimensional distance between two points of the grid, mm.
inline double SpaceLength(const SurfaceGrid& grid, int lineA, int pointA, int lineB, int pointB) {
  const double dx = grid.SurfaceX(lineA, pointA) - grid.SurfaceX(lineB, pointB);
  const double dy = grid.SurfaceY(lineA, pointA) - grid.SurfaceY(lineB, pointB);
  const double dz = grid.SurfaceZ(lineA, pointA) - grid.SurfaceZ(lineB, pointB);
  return std::sqrt(dx * dx + dy * dy + dz * dz);
}

/// The upper corner of a developed panel where point is 5 or 35, else the point of its edge.
inline PlanePoint EdgePoint(const DevelopedPanels& panels, int p, int point) {
  return {panels.PanelEdgeX(p, point), panels.PanelEdgeY(p, point)};
}

/// Greatest difference between a grid edge and its developed edge over a panel, mm.
inline double WorstEdgeError(const Sail& sail, int p) {
  const DevelopedPanels& flat = sail.Panels;
  double worst = 0;
  for (int point = 5; point < 35; ++point) {
    const double lower = std::hypot(flat.PanelLowerX(p, point + 1) - flat.PanelLowerX(p, point),
                                    flat.PanelLowerY(p, point + 1) - flat.PanelLowerY(p, point));
    const double upper = std::hypot(flat.PanelUpperX(p, point + 1) - flat.PanelUpperX(p, point),
                                    flat.PanelUpperY(p, point + 1) - flat.PanelUpperY(p, point));
    worst = std::max({worst, std::abs(lower - SpaceLength(sail.Grid, p, point, p, point + 1)),
                      std::abs(upper - SpaceLength(sail.Grid, p + 1, point, p + 1, point + 1))});
  }
  for (int point = 0; point < 40; ++point) {
    if (point >= 5 && point < 35) continue;
    const double flatLength = Length(EdgePoint(flat, p, point + 1) - EdgePoint(flat, p, point));
    worst = std::max(worst,
                     std::abs(flatLength - SpaceLength(sail.Grid, p + 1, point, p + 1, point + 1)));
  }
  return worst;
}

/// Signed area of a closed ring of points, mm²; anticlockwise positive.
inline double ShoelaceArea(const std::vector<PlanePoint>& ring) {
  double twice = 0;
  for (std::size_t i = 2; i < ring.size(); ++i)
    twice += Cross(ring[i - 1] - ring[0], ring[i] - ring[0]);
  return twice / 2;
}

/// Appends points from to to of a line of the grid, in either direction, as points of the plane.
inline void AppendLinePoints(std::vector<PlanePoint>& ring, const SurfaceGrid& grid, int line,
                             int from, int to) {
  const int step = from <= to ? 1 : -1;
  for (int point = from; point != to + step; point += step)
    ring.push_back({grid.SurfaceX(line, point), grid.SurfaceY(line, point)});
}

/// Signed area of the strip of panel p in the plane, mm²; anticlockwise positive.
inline double StripPlanArea(const SurfaceGrid& grid, int p) {
  std::vector<PlanePoint> ring;
  AppendLinePoints(ring, grid, p, 5, 35);
  AppendLinePoints(ring, grid, p + 1, 40, 0);
  return ShoelaceArea(ring);
}

/// Area of a developed panel's cutting outline, mm²; positive for upper seam above lower.
inline double PanelArea(const DevelopedPanels& panels, int p) {
  std::vector<PlanePoint> outline;
  for (int point = 5; point <= 35; ++point)
    outline.push_back({panels.PanelLowerX(p, point), panels.PanelLowerY(p, point)});
  for (int point = 40; point >= 35; --point) outline.push_back(EdgePoint(panels, p, point));
  for (int point = 35; point >= 5; --point)
    outline.push_back({panels.PanelUpperX(p, point), panels.PanelUpperY(p, point)});
  for (int point = 5; point >= 0; --point) outline.push_back(EdgePoint(panels, p, point));
  return ShoelaceArea(outline);
}

}  // namespace brivane
