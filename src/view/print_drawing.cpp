#include "view/print_drawing.h"

#include <cstddef>
#include <string>

#include "view/outline_curve.h"
#include "view/page_parts.h"
#include "view/sail_drawing.h"

namespace brivane {

namespace {

/// Free between title, scale bar and sail, surface units.
constexpr double kGap = 60;

double TitleWidth(const Paper& paper) { return (1 - 2 * kPageMargin) * paper.Width; }

/// The greatest size up to the heading's with which the title takes no more than the height.
double TitleSize(const std::string& title, const Paper& paper, double largest, double height,
                 const TextMeasure& measure) {
  constexpr double kShrink = 0.95;
  constexpr double kSmallest = 40;
  double size = largest;
  while (size > kSmallest) {
    const std::size_t lines = WrapText(title, TitleWidth(paper), size, measure).size();
    if (static_cast<double>(lines) * kLineHeight * size <= height) break;
    size *= kShrink;
  }
  return size;
}

void AddPlan(const SailDefinition& sail, const ViewState& view, const Paper& paper,
             Language language, const TextMeasure& measure, Drawing& page) {
  AppendOutline(sail, view, page);
  const std::size_t firstLabel = page.Texts.size();
  AppendLabels(sail, view, language, page);
  for (std::size_t i = firstLabel; i < page.Texts.size(); ++i) {
    page.Texts[i].Size = FontsFor(paper).Label;
    KeepOnPage(page.Texts[i], paper, measure);
  }
}

}  // namespace

ViewState PrintView(const SailDefinition& sail, const Paper& paper) {
  const Extent outline = UprightExtent(sail);
  const double fitting = FittingScale(kUsableShare * paper.Width, kUsableShare * paper.Height,
                                      outline.Width(), outline.Height());
  ViewState view;
  view.ViewScale = HeldPrintScale(fitting, paper);
  view.ViewOffsetX = kPageMargin * paper.Width - outline.Left * view.ViewScale;
  view.ViewOffsetY = kPageMargin * paper.Height - outline.Bottom * view.ViewScale;
  return view;
}

Drawing PrintedDrawing(const SailDefinition& sail, const Paper& paper, Language language,
                       const TextMeasure& measure) {
  Drawing page;
  if (!(paper.Width > 0 && paper.Height > 0)) return page;
  const PageFonts fonts = FontsFor(paper);
  const std::string title = PageTitle(sail.SailName);
  if (!HasOutline(sail)) {
    const double size = TitleSize(title, paper, fonts.Heading, paper.Height, measure);
    AddLines(page, title, {kPageMargin * paper.Width, paper.Height}, TitleWidth(paper), size,
             measure);
    return page;
  }
  const ViewState view = PrintView(sail, paper);
  const double sailTop = view.ViewOffsetY + UprightExtent(sail).Top * view.ViewScale;
  const double barRoom = 2 * kGap + ScaleBarDepth(fonts.Label);
  const double size =
      TitleSize(title, paper, fonts.Heading, paper.Height - sailTop - barRoom, measure);
  const double titleEnd = AddLines(page, title, {kPageMargin * paper.Width, paper.Height},
                                   TitleWidth(paper), size, measure);
  AddScaleBar(page, paper, view.ViewOffsetX, view.ViewScale, titleEnd - kGap, fonts.Label);
  AddPlan(sail, view, paper, language, measure, page);
  return page;
}

}  // namespace brivane
