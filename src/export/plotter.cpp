#include "export/plotter.h"

#include <algorithm>
#include <span>

#include "export/record_text.h"
#include "geometry/plane.h"
#include "model/language.h"
#include "model/number_text.h"

namespace brivane {
namespace {

// The fixed counts of the format; the stretches below add up to them.
constexpr int kGuidePoints = 31;
constexpr int kOutlinePoints = 75;
constexpr int kTopOutlinePoints = 73;
constexpr std::size_t kPanelBytes = 106 * 26 + 120;

struct PointList {
  FileText& Text;
  char DecimalMark;
  int Panel;

  void Stretch(const PanelTable& xs, const PanelTable& ys, int first, int last) const {
    const std::span<const double> x = xs.Row(Panel);
    const std::span<const double> y = ys.Row(Panel);
    const int step = first <= last ? 1 : -1;
    for (int k = first; k != last + step; k += step)
      AppendPlotterPoint(Text, x[k], y[k], DecimalMark);
  }
};

PlanePoint LabelPlace(const Sail& sail, int panel) {
  const DevelopedPanels& panels = sail.Panels;
  const PanelPlace place = PlaceOfPanel(sail.Grid, panel);
  const int point = place == PanelPlace::Foot ? 8 : 6;
  // A gaff panel takes x from the edge and y from the lower seam, on purpose.
  const PanelTable& xs = place == PanelPlace::Gaff ? panels.PanelEdgeX : panels.PanelLowerX;
  return {xs(panel, point) + 10, panels.PanelLowerY(panel, point) + 5};
}

void AppendPanel(FileText& text, const Sail& sail, int panel, char decimalMark) {
  const DevelopedPanels& panels = sail.Panels;
  const PointList points{text, decimalMark, panel};
  const bool top = panel == sail.Definition.PanelCount - 1;

  const PlanePoint label = LabelPlace(sail, panel);
  AppendPlotterRecord(text, FormatPattern(kTwoDigits, panel + 1, decimalMark), label.x, label.y);

  if (!top) {
    AppendPlotterCommand(text, "draw", kGuidePoints);
    points.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, kAftCorner, kForwardCorner);
  }
  AppendPlotterCommand(text, "cut", top ? kTopOutlinePoints : kOutlinePoints);
  points.Stretch(panels.PanelLowerX, panels.PanelLowerY, kForwardCorner, kForwardCorner);
  if (top) {
    points.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, 0, kLastPoint);
  } else {
    points.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, 0, kForwardCorner);
    points.Stretch(panels.PanelUpperX, panels.PanelUpperY, kForwardCorner, kAftCorner);
    points.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, kAftCorner, kLastPoint);
  }
  points.Stretch(panels.PanelLowerX, panels.PanelLowerY, kAftCorner, kForwardCorner);
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
