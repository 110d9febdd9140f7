#pragma once

namespace brivane {

/// What "Redraw" shows.
enum class RedrawMode { FitOutline = 0, Surface = 1 };

/// Where the sail sits on the picture. Lengths in surface units (1/20 point, 15 to a pixel at 96
/// dpi), vertical axis up.
struct ViewState {
  double ViewOffsetX = 0;  ///< where the tack lands
  double ViewOffsetY = 0;
  double ViewScale = 0;       ///< surface units for one mm
  double DevelopOriginX = 0;  ///< origin of the developed panels beside the sail, mm
  double DevelopOriginY = 0;
  bool DevelopShown = false;
  RedrawMode Mode = RedrawMode::FitOutline;
};

/// What is on the picture at the moment. The commands and the mouse put it together: "Redraw" in
/// outline mode shows outline and labels, turning the view the seam lines alone, a pan or a zoom
/// adds the seam lines to what its mode shows, "Develop" adds the panels.
struct PictureContent {
  bool Outline = false;
  bool Labels = false;
  bool SeamLines = false;
  bool Panels = false;
  bool operator==(const PictureContent&) const = default;
};

/// What "Redraw" in the view's mode shows, with the developed panels while they are switched on.
constexpr PictureContent ContentOf(const ViewState& view) {
  const bool outline = view.Mode == RedrawMode::FitOutline;
  return {outline, outline, !outline, view.DevelopShown};
}

/// Size of the picture in surface units. Its user scale leaves a margin of 5 % all round.
struct PictureSize {
  double Width = 0;
  double Height = 0;
};

}  // namespace brivane
