#pragma once

#include <string>
#include <vector>

#include "geometry/plane.h"

namespace brivane {

struct Colour {
  int Red = 0;
  int Green = 0;
  int Blue = 0;
  bool operator==(const Colour&) const = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kBlue{0, 0, 255};
inline constexpr Colour kRedOrange{255, 50, 0};

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
};

/// Everything that a picture or a page shows, in drawing order. Whoever paints it, on the screen
/// or on paper, adds nothing.
struct Drawing {
  std::vector<Stroke> Strokes;
  std::vector<DrawnText> Texts;
};

}  // namespace brivane
