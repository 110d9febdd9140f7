#pragma once

#include <string>
#include <vector>

#include "geometry/plane.h"

namespace brivane {

/// A colour by its parts, 0 to 255.
struct Colour {
  int Red = 0;
  int Green = 0;
  int Blue = 0;
  bool operator==(const Colour&) const = default;
};

/// The inks of the drawings.
inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kBlue{0, 0, 255};
inline constexpr Colour kRedOrange{255, 50, 0};

/// How a stroke is drawn.
enum class PenStyle { Solid, Dashed };

/// A polyline in surface units, vertical axis up, pen one pixel wide.
struct Stroke {
  std::vector<PlanePoint> Points;
  Colour Ink = kBlack;
  PenStyle Pen = PenStyle::Solid;
};

/// A text whose top left corner stands at a point of the surface.
struct DrawnText {
  PlanePoint At;
  std::string Text;  ///< UTF-8
  Colour Ink = kBlack;
  double Size = 0;       ///< height of the font in surface units; 0: the picture's own font
  bool Follows = false;  ///< starts where the text before it ends; At is that text's own point
};

/// Everything that a picture or a page shows, in drawing order. Whoever paints it, on the screen
/// or on paper, adds nothing.
struct Drawing {
  std::vector<Stroke> Strokes;
  std::vector<DrawnText> Texts;
};

/// Adds the polyline. One with a coordinate that is not finite, with fewer than two points or
/// without any extent is left out, so that nothing degenerate is ever painted.
void AddStroke(Drawing& drawing, Stroke stroke);

/// Adds the text. One that is empty or whose place is not finite is left out.
void AddText(Drawing& drawing, DrawnText text);

}  // namespace brivane
