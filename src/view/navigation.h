#pragma once

#include "geometry/plane.h"
#include "model/sail_definition.h"
#include "view/view_state.h"

namespace brivane {

/// Surface units to a pixel at 96 dpi.
inline constexpr double kUnitsPerPixel = 15;

/// The scroll bars run from −kScrollLimit to kScrollLimit, hundredths of a radian.
inline constexpr int kScrollLimit = 157;

/// The diagonal never grows beyond this many surface units by zooming.
inline constexpr double kLongestDiagonal = 264000;

/// A zoom rectangle no wider than this is a click, surface units.
inline constexpr double kSmallestZoomWidth = 300;

/// View angle of a scroll bar's value, rad. Values beyond the bar's range are held at its ends.
double ScrollAngle(int value);

/// Size of a picture of so many pixels at 96 dpi.
PictureSize SizeOfPixels(double width, double height);

/// The picture's user scale reaches from −0.05 to 1.05 of its size each way, vertical axis up.
/// Width of what it shows, surface units.
double ScaleWidth(const PictureSize& picture);

/// Surface point of a place on the picture, given as fractions of its width from the left and of
/// its height from the top.
PlanePoint SurfacePointAt(const PictureSize& picture, double fromLeft, double fromTop);

/// Place of a surface point on the picture: x as a fraction of the width from the left, y as a
/// fraction of the height from the top. Outside 0 to 1 beyond the picture's edges; 0 on a picture
/// without size.
PlanePoint FractionAt(const PictureSize& picture, PlanePoint surfacePoint);

/// Fits the whole sail into the picture: sets the view's offsets and scale and the origin of the
/// developed panels beside the sail. The drawn outline then lies between 0 and the picture's height
/// less 100, and between the picture's left margin and its width less 100. Returns false, and
/// leaves the view alone, where the sail has no outline.
bool FitView(const SailDefinition& sail, const PictureSize& picture, ViewState& view);

/// The shares of a fit, mm, the luff stood upright.
struct FitExtents {
  double LuffOverhang = 0;  ///< how far the luff leans forward of the tack, with its round
  double BelowTack = 0;     ///< how far the outline reaches below the tack
  double Horizontal = 0;
  double Vertical = 0;
};
FitExtents ExtentsToFit(const SailDefinition& sail);

/// Moves the sail by the drag from one surface point to another.
void Pan(ViewState& view, PlanePoint from, PlanePoint to);

/// Zooms so that the rectangle between two corners fills the picture. A rectangle no wider than
/// 300 units changes nothing and returns false.
bool ZoomToRectangle(ViewState& view, const PictureSize& picture, double diagonalLength,
                     PlanePoint corner, PlanePoint oppositeCorner);

/// Zooms by steps of a fifth about a surface point, which stays where it is: steps > 0 in, < 0 out.
/// Stops at the longest diagonal, and outwards where the sail is hardly to be seen. Returns false
/// where nothing changed.
bool ZoomAbout(ViewState& view, double diagonalLength, PlanePoint fixedPoint, double steps);

}  // namespace brivane
