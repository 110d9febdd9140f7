#include "export/panels_xy.h"

#include <algorithm>
#include <cmath>

#include "export/record_text.h"
#include "model/panel_walk.h"

namespace brivane {
namespace {

constexpr std::size_t kPanelBytes = 107 * 22 + 120;

// A point line, put in one piece.
void AppendPoint(FileText& text, double x, double y, char decimalMark) {
  char* at = PutWords(text.Room(2 * kLongestFixed + 16), " ");
  at = PutFixed<1>(at, x < 0, std::fabs(x), decimalMark);
  at = PutFixed<1>(PutWords(at, " ; "), y < 0, std::fabs(y), decimalMark);
  text.EndAt(PutWords(at, " \r\n"));
}

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
    WalkStretch(sail.Panels, panel, stretch,
                [&text, decimalMark](double x, double y) { AppendPoint(text, x, y, decimalMark); });
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
