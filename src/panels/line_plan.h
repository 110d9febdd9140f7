#pragma once

#include <array>

#include "geometry/surface.h"
#include "model/sail.h"

namespace brivane {

/// The closed boundary of the sail as the panels follow it: foot, luff, gaff, leech. A place on it
/// is one number, the edge's index plus the fraction of the edge.
struct Boundary {
  std::array<RoundedEdge, 4> Edges;

  PlanePoint At(double place) const;
};

/// Places of the corners on the boundary.
inline constexpr double kClew = 0;
inline constexpr double kTack = 1;
inline constexpr double kThroat = 2;
inline constexpr double kPeak = 3;
inline constexpr double kClewAgain = 4;  ///< the clew as the end of the leech

/// Amount by which each strip is laid narrower than the cloth, mm; index: panel.
using Allowances = std::array<double, 92>;

/// No strip but the last is narrower than this where it is stepped off, mm.
inline constexpr double kNarrowestStep = 40;

/// Where the steps of a pass may go, measured along the stepping direction from the clew, mm.
struct StepBounds {
  double LastCorner = 0;  ///< the last corner of the sail, where the panels end
  double HollowLow = 0;   ///< a seam within (HollowLow, HollowHigh) would leave the sail through
  double HollowHigh = 0;  ///< the hollow of the edge that closes the sail
};

/// The seams of one pass as distances from the clew.
struct Steps {
  std::array<double, kMostPanels + 1> Distance{};  ///< index: line; 1 to PanelCount − 1 in use
  int PanelCount = 0;
  double LastStep = 0;   ///< what the last strip really takes, mm
  int NarrowSteps = 0;   ///< steps that were raised to kNarrowestStep
  bool TooMany = false;  ///< more lines than kMostPanels
};

/// Steps off one strip after another, panel p by clothWidth − allowances[p], until the last corner
/// is covered.
Steps StepOff(double clothWidth, const Allowances& allowances, const StepBounds& bounds);

/// Bounds of the steps along direction (which grows by 1 for each mm of step) from the clew, for a
/// sail that is closed by the given edge.
StepBounds BoundsAlong(const SurfaceFrame& frame, PlanePoint direction, const RoundedEdge& closing);

/// A line of the layout by the places of its ends on the boundary.
struct LayoutLine {
  double Forward = 0;
  double Aft = 0;
  EdgeCode Code = EdgeCode::Luff;  ///< edge of the forward end
};

/// All lines of one pass. The last line runs along the boundary, from the forward end of the line
/// before to the last corner (or to that line's aft end, where it lies beyond).
struct LinePlan {
  Boundary Ring;
  std::array<LayoutLine, kMostPanels + 1> Lines{};  ///< 0 to PanelCount − 1 in use
  int PanelCount = 0;
  double LastCorner = kPeak;  ///< place where the last line ends
  EdgeCode LastCode = EdgeCode::Gaff;
};

/// Fills lines 1 to PanelCount of the grid, lifted to the surface, with their edge pieces and
/// codes. Line 0 must stand. Throws GeometryFault where a point cannot be lifted.
void FillGrid(const SurfaceFrame& frame, const LinePlan& plan, SurfaceGrid& grid);

/// Puts a place of the boundary, lifted to the surface, into a point of a line. The clew has z = 0.
void PutPlace(const SurfaceFrame& frame, const Boundary& ring, double place, SurfaceGrid& grid,
              int line, int point);

/// Puts the boundary between two places into the points first to last of a line; the places
/// themselves belong to the points before first and after last. Corners of the sail in between
/// are points of their own; the rest is spread by length.
void PutBoundary(const SurfaceFrame& frame, const Boundary& ring, double from, double to,
                 SurfaceGrid& grid, int line, int first, int last);

}  // namespace brivane
