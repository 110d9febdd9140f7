#include "export/panels_xy.h"

#include <algorithm>

#include "export/record_text.h"
#include "model/number_text.h"
#include "model/panel_walk.h"

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

void AppendPanel(FileText& text, const Sail& sail, int panel, char decimalMark) {
  const auto walk = [&](const PanelStretch& stretch) {
    WalkStretch(sail.Panels, panel, stretch, [&text, decimalMark](double x, double y) {
      AppendPattern<kX>(text, x, decimalMark);
      AppendPattern<kY>(text, y, decimalMark);
    });
  };

  text += "\r\nPANEL; " + std::to_string(panel + 1) + " ;";
  AppendLine(text, EdgeLabel(PlaceOfPanel(sail.Grid, panel)));

  AppendLine(text, " CUT ;lower edge");
  walk(kLowerSeam);

  text += "\r\n CUT ;upper edge\r\n";
  for (std::size_t i = 0; i < kPanelOutline.size() - 1; ++i) walk(kPanelOutline[i]);
  walk({PanelLine::Lower, kAftCorner, kAftCorner});

  text += "\r\n DRAW ;upper edge guideline\r\n";
  walk(kGuideLine);
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
