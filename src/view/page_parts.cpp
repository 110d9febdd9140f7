#include "view/page_parts.h"

#include <algorithm>

#include "model/language.h"

namespace brivane {

namespace {

constexpr double kLongBar = 1000;  // mm
constexpr double kShortBar = 200;

/// Place of the bar's text from the start of the bar, surface units.
constexpr double kBarTextRight = 50;
constexpr double kBarTextDown = 150;

/// Half the height of the ticks at both ends of the bar.
constexpr double kBarTick = 40;

constexpr double kBarEnd = 0.9;

}  // namespace

PageFonts FontsFor(const Paper& paper) {
  const double side = std::min(paper.Width, paper.Height);
  const double label = std::clamp(side / 60, 120.0, 240.0);
  return {1.4 * label, label, std::clamp(side / 75, 110.0, 200.0)};
}

double HeldPrintScale(double scale, const Paper& paper) {
  constexpr double kMostOfPage = 0.85;
  return std::min({scale, kUnitsPerPaperMm, kMostOfPage * paper.Width / kShortBar});
}

std::string PageTitle(const std::string& sailName) {
  return std::string(ProgramTitle) + " - " + sailName;
}

double AddLines(Drawing& page, std::string_view text, PlanePoint topLeft, double width, double size,
                const TextMeasure& measure) {
  for (std::string& line : WrapText(text, width, size, measure)) {
    AddText(page, {topLeft, std::move(line), kBlack, size});
    topLeft.y -= kLineHeight * size;
  }
  return topLeft.y;
}

double ScaleBarLength(const Paper& paper, double printOffsetX, double scale) {
  return printOffsetX + kLongBar * scale < 0.8 * paper.Width ? kLongBar : kShortBar;
}

double AddScaleBar(Drawing& page, const Paper& paper, double printOffsetX, double scale, double y,
                   double size) {
  const double length = ScaleBarLength(paper, printOffsetX, scale);
  const double end = kBarEnd * paper.Width;
  const double start = end - length * scale;
  AddStroke(page, {{{start, y}, {end, y}}});
  for (const double x : {start, end}) AddStroke(page, {{{x, y - kBarTick}, {x, y + kBarTick}}});
  AddText(page, {{start + kBarTextRight, y - kBarTextDown},
                 length == kLongBar ? " 1000 mm" : " 200 mm",
                 kBlack,
                 size});
  return y - ScaleBarDepth(size);
}

double ScaleBarDepth(double size) { return kBarTextDown + kLineHeight * size; }

void KeepOnPage(DrawnText& text, const Paper& paper, const TextMeasure& measure) {
  const double width = measure(text.Text, text.Size);
  const double height = kLineHeight * text.Size;
  text.At.x = std::max(0.0, std::min(text.At.x, paper.Width - width));
  text.At.y = std::min(paper.Height, std::max(text.At.y, height));
}

}  // namespace brivane
