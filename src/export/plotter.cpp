#include "export/plotter.h"

#include <algorithm>

#include "export/record_text.h"
#include "geometry/plane.h"
#include "model/language.h"
#include "model/number_text.h"
#include "model/panel_walk.h"

namespace brivane {
namespace {

constexpr std::size_t kPanelBytes = 106 * 26 + 120;

PlanePoint LabelPlace(const Sail& sail, int panel) {
  const DevelopedPanels& panels = sail.Panels;
  const PanelPlace place = PlaceOfPanel(sail.Grid, panel);
  const int point = place == PanelPlace::Foot ? 8 : 6;
  // A gaff panel takes x from the edge and y from the lower seam, on purpose.
  const PanelTable& xs = place == PanelPlace::Gaff ? panels.PanelEdgeX : panels.PanelLowerX;
  return {xs(panel, point) + 10, panels.PanelLowerY(panel, point) + 5};
}

void AppendPanel(FileText& text, const Sail& sail, int panel, char decimalMark) {
  const auto walk = [&](const PanelStretch& stretch) {
    WalkStretch(sail.Panels, panel, stretch, [&text, decimalMark](double x, double y) {
      AppendPlotterPoint(text, x, y, decimalMark);
    });
  };
  const auto cut = [&](const auto& outline) {
    AppendPlotterCommand(text, "cut", CountOf(outline));
    for (const PanelStretch& stretch : outline) walk(stretch);
  };

  const PlanePoint label = LabelPlace(sail, panel);
  AppendPlotterRecord(text, FormatPattern(kTwoDigits, panel + 1, decimalMark), label.x, label.y);
  if (panel == sail.Definition.PanelCount - 1) return cut(kTopPanelOutline);
  AppendPlotterCommand(text, "draw", kGuideLine.Count());
  walk(kGuideLine.Reversed());
  cut(kPanelOutline);
}

}  // namespace

std::string PlotterText(const Sail& sail, char decimalMark) {
  const int count = sail.Definition.PanelCount;
  const std::string name = LineName(sail.Definition.SailName);
  FileText text(static_cast<std::size_t>(std::max(count, 0)) * kPanelBytes);
  text += ProgramTitle;
  AppendLine(text, " Tovarek Plotter Development: " + name);
  for (int panel = 0; panel < count; ++panel) AppendPanel(text, sail, panel, decimalMark);
  AppendLine(text, "EOF " + name);
  return text.Take();
}

}  // namespace brivane
