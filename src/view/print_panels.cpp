#include "view/print_panels.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>

#include "model/number_text.h"
#include "view/page_parts.h"
#include "view/panel_offsets.h"
#include "view/panel_outline.h"
#include "view/projection.h"

namespace brivane {

namespace {

/// Free between the parts of a page, surface units.
constexpr double kGap = 80;

constexpr double kUnlimited = std::numeric_limits<double>::infinity();

/// A panel that is there, with all that is printed of it.
struct PrintedPanel {
  int Number = 0;  ///< from 1
  std::vector<PlanePoint> Outline;
  std::vector<PlanePoint> Guide;
  PanelOffsets Offsets;
  double Bottom = 0, Top = 0;  ///< in its own frame, mm
};

/// What all panels share.
struct PageLayout {
  PageFonts Fonts;
  double Scale = 0;
  double OffsetX = 0;  ///< where x = 0 of every panel stands
  double Reach = 0;    ///< height of the leaders between a panel and its offsets
};

std::vector<PrintedPanel> PanelsToPrint(const Sail& sail) {
  std::vector<PrintedPanel> panels;
  const int count = std::min<int>(sail.Definition.PanelCount, kMostPanels);
  for (int index = 0; index < count; ++index) {
    PrintedPanel panel;
    panel.Outline = PanelOutline(sail.Panels, index);
    if (panel.Outline.empty()) continue;
    panel.Number = index + 1;
    panel.Guide = PanelGuide(sail, index);
    panel.Offsets = OffsetsOf(sail.Panels, index);
    panel.Bottom = kUnlimited;
    panel.Top = -kUnlimited;
    for (const PlanePoint& point : panel.Outline) {
      panel.Bottom = std::min(panel.Bottom, point.y);
      panel.Top = std::max(panel.Top, point.y);
    }
    panels.push_back(std::move(panel));
  }
  return panels;
}

/// Height of a panel's texts and leaders, without the panel itself.
double TextHeight(const PageLayout& layout) {
  return kLineHeight * (layout.Fonts.Label + 2 * layout.Fonts.Offset) + 2 * layout.Reach;
}

double BlockHeight(const PrintedPanel& panel, const PageLayout& layout) {
  return TextHeight(layout) + (panel.Top - panel.Bottom) * layout.Scale;
}

std::string PanelName(int number, Language language) {
  constexpr BilingualText kPanel{"Panel ", "Laize "};
  return std::string(kPanel.In(language)) + FormatPattern(kTwoDigits, number, '.');
}

std::string Reference(const std::string& sailName, Language language) {
  constexpr BilingualText kReference{"For offset details, see file ",
                                     "Pour cotes détaillées, voir fichier "};
  return std::string(kReference.In(language)) + sailName + ".XYZ ";
}

/// Adds the heading and returns where it ends.
double AddHeading(Drawing& page, const std::string& sailName, int number, const Paper& paper,
                  Language language, const TextMeasure& measure) {
  const PageFonts fonts = FontsFor(paper);
  const double left = kPageMargin * paper.Width;
  const double width = paper.Width - 2 * left;
  double top =
      AddLines(page, PageTitle(sailName), {left, paper.Height}, width, fonts.Heading, measure);
  top = AddLines(page, Reference(sailName, language), {left, top}, width, fonts.Label, measure);
  return AddLines(page, "page " + PlainNumber(number), {left, top}, width, fonts.Label, measure);
}

/// The one scale and font sizes with which every panel fits between the top and the page's end.
PageLayout LayOutPages(const std::vector<PrintedPanel>& panels, const Paper& paper, double height,
                       const TextMeasure& measure) {
  PageLayout layout;
  layout.Fonts = FontsFor(paper);
  double left = 0, right = 0, highest = 0, widestRow = 1;
  for (const PrintedPanel& panel : panels) {
    for (const PlanePoint& point : panel.Outline) {
      left = std::min(left, point.x);
      right = std::max(right, point.x);
    }
    highest = std::max(highest, panel.Top - panel.Bottom);
    widestRow = std::max({widestRow, RowWidth(panel.Offsets.Lower, measure),
                          RowWidth(panel.Offsets.Upper, measure)});
  }
  layout.Fonts.Offset = std::min(layout.Fonts.Offset, paper.Width / widestRow);
  layout.Reach = 2.5 * layout.Fonts.Offset;
  const double room = std::max(height - TextHeight(layout), 0.1 * height);
  const double fitting = std::min(kUsableShare * paper.Width / std::max(right - left, 1e-3),
                                  highest > 0 ? room / highest : kUnlimited);
  layout.Scale = HeldPrintScale(fitting, paper);
  layout.OffsetX = kPageMargin * paper.Width - left * layout.Scale;
  return layout;
}

std::vector<PlanePoint> PlacesOf(const std::vector<PanelOffset>& offsets, const PlanMapping& plan) {
  std::vector<PlanePoint> places;
  places.reserve(offsets.size());
  for (const PanelOffset& offset : offsets) places.push_back(plan.Map(offset.Point));
  return places;
}

Stroke MappedStroke(const std::vector<PlanePoint>& points, const PlanMapping& plan, PenStyle pen) {
  Stroke stroke;
  stroke.Pen = pen;
  stroke.Points.reserve(points.size());
  for (const PlanePoint& point : points) stroke.Points.push_back(plan.Map(point));
  return stroke;
}

/// Adds a panel with its texts, its top at the height given.
void AddPanel(Drawing& page, const PrintedPanel& panel, const PageLayout& layout, double top,
              const Paper& paper, Language language, const TextMeasure& measure) {
  const double upperTexts = top - kLineHeight * layout.Fonts.Label;
  const double panelTop = upperTexts - kLineHeight * layout.Fonts.Offset - layout.Reach;
  ViewState view;
  view.ViewScale = layout.Scale;
  view.ViewOffsetX = layout.OffsetX;
  view.ViewOffsetY = panelTop - panel.Top * layout.Scale;
  const PlanMapping plan(0, view);
  const double panelBottom = view.ViewOffsetY + panel.Bottom * layout.Scale;
  const double knee = layout.Reach / 4;

  AddText(page, {{kPageMargin * paper.Width, top},
                 PanelName(panel.Number, language),
                 kBlack,
                 layout.Fonts.Label});
  AddStroke(page, MappedStroke(panel.Outline, plan, PenStyle::Solid));
  AddStroke(page, MappedStroke(panel.Guide, plan, PenStyle::Dashed));
  AddOffsetRow(page, panel.Offsets.Upper, PlacesOf(panel.Offsets.Upper, plan),
               {upperTexts, layout.Fonts.Offset, panelTop + knee, true}, paper.Width, measure);
  AddOffsetRow(page, panel.Offsets.Lower, PlacesOf(panel.Offsets.Lower, plan),
               {panelBottom - layout.Reach, layout.Fonts.Offset, panelBottom - knee, false},
               paper.Width, measure);
}

}  // namespace

std::vector<Drawing> PrintedPanels(const Sail& sail, const Paper& paper, Language language,
                                   const TextMeasure& measure) {
  if (!(paper.Width > 0 && paper.Height > 0)) return {};
  const std::string& name = sail.Definition.SailName;
  std::vector<Drawing> pages(1);
  double top = AddHeading(pages.back(), name, 1, paper, language, measure) - kGap;
  const std::vector<PrintedPanel> panels = PanelsToPrint(sail);
  if (panels.empty()) return pages;

  const double barRoom = ScaleBarDepth(FontsFor(paper).Label) + kGap;
  const double bottom = kPageMargin * paper.Height;
  const PageLayout layout = LayOutPages(panels, paper, top - barRoom - bottom, measure);
  const auto addBar = [&] {
    top = AddScaleBar(pages.back(), paper, layout.OffsetX, layout.Scale, top, layout.Fonts.Label) -
          kGap;
  };
  addBar();
  bool pageIsEmpty = true;
  for (const PrintedPanel& panel : panels) {
    if (!pageIsEmpty && top - BlockHeight(panel, layout) < bottom) {
      pages.emplace_back();
      const int number = static_cast<int>(pages.size());
      top = AddHeading(pages.back(), name, number, paper, language, measure) - kGap;
      addBar();
    }
    AddPanel(pages.back(), panel, layout, top, paper, language, measure);
    top -= BlockHeight(panel, layout) + kGap;
    pageIsEmpty = false;
  }
  return pages;
}

}  // namespace brivane
