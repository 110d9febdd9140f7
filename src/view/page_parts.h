#pragma once

#include <string>
#include <string_view>

#include "view/drawing.h"
#include "view/paper.h"

namespace brivane {

/// Usable share of a page and its margin, as fractions of the page's size.
inline constexpr double kUsableShare = 0.9;
inline constexpr double kPageMargin = 0.02;

/// Font sizes that suit a paper, surface units: from 6 points on A5 to 12 on large sheets, and
/// more for the heading.
struct PageFonts {
  double Heading = 0;
  double Label = 0;
  double Offset = 0;
};
PageFonts FontsFor(const Paper& paper);

/// The scale, surface units for a mm, held so that nothing is printed larger than life and the
/// scale bar of 200 mm fits.
double HeldPrintScale(double scale, const Paper& paper);

/// "Brivane 2000 - " and the sail's name.
std::string PageTitle(const std::string& sailName);

/// Adds the text in as many lines as it takes and returns where they end, surface units.
double AddLines(Drawing& page, std::string_view text, PlanePoint topLeft, double width, double size,
                const TextMeasure& measure);

/// Length of the scale bar, mm: 1000 where the horizontal print offset and 1000 mm together stay
/// below 0.8 of the page's width, otherwise 200.
double ScaleBarLength(const Paper& paper, double printOffsetX, double scale);

/// Adds the scale bar at the height y: it ends at 0.9 of the page's width, and its length is told
/// below its start. Returns where the text ends.
double AddScaleBar(Drawing& page, const Paper& paper, double printOffsetX, double scale, double y,
                   double size);

/// Room that a scale bar with its text takes below its line, surface units.
double ScaleBarDepth(double size);

/// Moves the text back into the page where it would leave it.
void KeepOnPage(DrawnText& text, const Paper& paper, const TextMeasure& measure);

}  // namespace brivane
