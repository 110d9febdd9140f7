#include "view/navigation.h"

#include <algorithm>
#include <cmath>

#include "geometry/sail_edges.h"
#include "view/outline_curve.h"
#include "view/projection.h"

namespace brivane {

namespace {

/// The user scale's margin on every side, as a share of the picture.
constexpr double kMargin = 0.05;

/// Left free of the picture's width and height by a fit, surface units.
constexpr double kFitAllowance = 100;

/// How much of the left margin the outline may use where it reaches further forward than the
/// luff overhang tells, as a share of the picture's width.
constexpr double kUsableMargin = 0.04;

constexpr double kZoomStep = 1.2;

/// Zooming out with the wheel stops at a diagonal this short, surface units.
constexpr double kShortestDiagonal = 300;

/// Zooms by k about the point that is to land at the target.
void Zoom(ViewState& view, PlanePoint point, PlanePoint target, double k) {
  view.ViewOffsetX = target.x - (point.x - view.ViewOffsetX) * k;
  view.ViewOffsetY = target.y - (point.y - view.ViewOffsetY) * k;
  view.ViewScale *= k;
}

double TopCorner(const SailDefinition& sail) {
  const PlanMapping plan(sail.LuffRake, ViewState{});
  return std::max(plan.Unrake({0, sail.LuffLength}).y, plan.Unrake(InPlane(sail.PeakPoint)).y);
}

}  // namespace

double ScrollAngle(int value) { return std::clamp(value, -kScrollLimit, kScrollLimit) / 100.0; }

PictureSize SizeOfPixels(double width, double height) {
  return {width * kUnitsPerPixel, height * kUnitsPerPixel};
}

double ScaleWidth(const PictureSize& picture) { return (1 + 2 * kMargin) * picture.Width; }

PlanePoint SurfacePointAt(const PictureSize& picture, double fromLeft, double fromTop) {
  constexpr double kSpan = 1 + 2 * kMargin;
  return {(kSpan * fromLeft - kMargin) * picture.Width,
          (1 + kMargin - kSpan * fromTop) * picture.Height};
}

PlanePoint FractionAt(const PictureSize& picture, PlanePoint surfacePoint) {
  constexpr double kSpan = 1 + 2 * kMargin;
  if (!(picture.Width > 0 && picture.Height > 0)) return {};
  return {(surfacePoint.x / picture.Width + kMargin) / kSpan,
          (1 + kMargin - surfacePoint.y / picture.Height) / kSpan};
}

FitExtents ExtentsToFit(const SailDefinition& sail) {
  const Extent outline = UprightExtent(sail);
  FitExtents fit;
  fit.LuffOverhang = std::max(0.0, sail.LuffLength * std::sin(-sail.LuffRake) + sail.LuffRound);
  fit.BelowTack = std::max(0.0, -outline.Bottom);
  fit.Horizontal = std::max(2.3 * sail.ClewPoint.x, outline.Right) + fit.LuffOverhang;
  fit.Vertical = std::max(TopCorner(sail) + sail.ClothWidth / 2.0, outline.Top) + fit.BelowTack;
  return fit;
}

bool FitView(const SailDefinition& sail, const PictureSize& picture, ViewState& view) {
  if (!HasOutline(sail)) return false;
  const double width = std::max(1.0, picture.Width - kFitAllowance);
  const double height = std::max(1.0, picture.Height - kFitAllowance);
  const FitExtents fit = ExtentsToFit(sail);
  const double scale = FittingScale(width, height, fit.Horizontal, fit.Vertical);
  const double forward = -UprightExtent(sail).Left - fit.LuffOverhang;
  const double hidden = std::max(0.0, forward * scale - kUsableMargin * picture.Width);
  // What the margin cannot hold is moved into the picture, and the right edge with it.
  const double narrowed = width / (width + hidden);
  view.ViewScale = scale * narrowed;
  view.ViewOffsetX = fit.LuffOverhang * view.ViewScale + hidden * narrowed;
  view.ViewOffsetY = fit.BelowTack * view.ViewScale;
  view.DevelopOriginX = 1.1 * sail.ClewPoint.x + fit.LuffOverhang;
  view.DevelopOriginY = fit.BelowTack;
  return true;
}

void Pan(ViewState& view, PlanePoint from, PlanePoint to) {
  view.ViewOffsetX += to.x - from.x;
  view.ViewOffsetY += to.y - from.y;
}

bool ZoomToRectangle(ViewState& view, const PictureSize& picture, double diagonalLength,
                     PlanePoint corner, PlanePoint oppositeCorner) {
  const double width = std::abs(oppositeCorner.x - corner.x);
  const double height = std::abs(oppositeCorner.y - corner.y);
  if (!(width > kSmallestZoomWidth) || !(view.ViewScale > 0)) return false;
  double k = 0.9 * ScaleWidth(picture) / std::max(width, height);
  const double diagonal = view.ViewScale * diagonalLength;
  if (diagonal * k > kLongestDiagonal) k = kLongestDiagonal / diagonal;
  Zoom(view, {(corner.x + oppositeCorner.x) / 2, (corner.y + oppositeCorner.y) / 2},
       {picture.Width / 2, picture.Height / 2}, k);
  return true;
}

bool ZoomAbout(ViewState& view, double diagonalLength, PlanePoint fixedPoint, double steps) {
  const double diagonal = view.ViewScale * diagonalLength;
  if (!(diagonal > 0)) return false;
  double k = std::pow(kZoomStep, steps);
  if (steps > 0) k = std::max(1.0, std::min(k, kLongestDiagonal / diagonal));
  if (steps < 0) k = std::min(1.0, std::max(k, kShortestDiagonal / diagonal));
  if (k == 1) return false;
  Zoom(view, fixedPoint, fixedPoint, k);
  return true;
}

}  // namespace brivane
