#include "export/panels_xy.h"

#include <algorithm>
#include <span>

#include "export/record_text.h"
#include "model/number_text.h"

namespace brivane {
namespace {

// The two numbers of a point line.
constexpr NumberPattern kX = {" ", 1, 1, " ;"};
constexpr NumberPattern kY = {" ", 1, 1, " \r\n"};

constexpr std::size_t kPanelBytes = 107 * 22 + 120;

std::string_view EdgeLabel(PanelPlace place) {
  switch (place) {
    case PanelPlace::Foot:
      return " foot / bordure";
    case PanelPlace::Tack:
      return " tack / amure";
    case PanelPlace::Luff:
      return " luff / guindant";
    case PanelPlace::Head:
      return " luff head / tete guindant";
    case PanelPlace::Gaff:
      break;
  }
  return " gaff / vergue";
}

struct PointList {
  FileText& Text;
  char DecimalMark;
  int Panel;

  void Stretch(const PanelTable& xs, const PanelTable& ys, int first, int last) const {
    const std::span<const double> x = xs.Row(Panel);
    const std::span<const double> y = ys.Row(Panel);
    for (int k = first; k <= last; ++k) {
      AppendPattern<kX>(Text, x[k], DecimalMark);
      AppendPattern<kY>(Text, y[k], DecimalMark);
    }
  }
};

void AppendPanel(FileText& text, const Sail& sail, int panel, char decimalMark) {
  const DevelopedPanels& panels = sail.Panels;
  const PointList points{text, decimalMark, panel};

  text += "\r\nPANEL; " + std::to_string(panel + 1) + " ;";
  AppendLine(text, EdgeLabel(PlaceOfPanel(sail.Grid, panel)));

  AppendLine(text, " CUT ;lower edge");
  points.Stretch(panels.PanelLowerX, panels.PanelLowerY, kForwardCorner, kAftCorner);

  text += "\r\n CUT ;upper edge\r\n";
  points.Stretch(panels.PanelLowerX, panels.PanelLowerY, kForwardCorner, kForwardCorner);
  points.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, 0, kForwardCorner);
  points.Stretch(panels.PanelUpperX, panels.PanelUpperY, kForwardCorner, kAftCorner);
  points.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, kAftCorner, kLastPoint);
  points.Stretch(panels.PanelLowerX, panels.PanelLowerY, kAftCorner, kAftCorner);

  text += "\r\n DRAW ;upper edge guideline\r\n";
  points.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, kForwardCorner, kAftCorner);
}

}  // namespace

std::string PanelsXYText(const Sail& sail, char decimalMark) {
  const int count = sail.Definition.PanelCount;
  FileText text(static_cast<std::size_t>(std::max(count, 0)) * kPanelBytes);
  AppendLine(text, LineName(sail.Definition.SailName) + "; Panels development XY");
  for (int panel = 0; panel < count; ++panel) AppendPanel(text, sail, panel, decimalMark);
  text += "\r\nEOF \r\n";
  return text.Take();
}

}  // namespace brivane
