#include "export/record_text.h"

#include "model/number_text.h"

namespace brivane {
void AppendLine(std::string& text, std::string_view line) {
  text += line;
  text += kLineEnd;
}

std::string LineName(std::string_view sailName) {
  std::string name(sailName);
  std::erase_if(name, [](char byte) { return static_cast<unsigned char>(byte) < 32; });
  return name;
}

void AppendZones(std::string& text, std::string_view first, std::string_view second) {
  text += first;
  text.append(kPrintZone - first.size() % kPrintZone, ' ');
  text += second;
  text += kLineEnd;
}

void AppendPlotterPoint(std::string& text, double x, double y, char decimalMark) {
  const std::size_t start = text.size();
  AppendPattern(text, kTenthsBlank, x, decimalMark);
  text.append(kPrintZone - (text.size() - start) % kPrintZone, ' ');
  AppendPattern(text, {"", 1, 1, " \r\n"}, y, decimalMark);
}

void AppendPlotterCommand(std::string& text, std::string_view word, int points) {
  AppendZones(text, word, StrNum(points));
}

void AppendPlotterRecord(std::string& text, std::string_view label, double x, double y) {
  text += "panel,";
  text += label;
  for (const double field : {1.0, x, y, 0.0, 6.0}) {
    text += ',';
    AppendStrNum(text, field);
  }
  text += kLineEnd;
}

PanelPlace PlaceOfPanel(const SurfaceGrid& grid, int panel) {
  const double lower = grid.SurfaceX(panel, kEdgeCodeColumn);
  const double upper = grid.SurfaceX(panel + 1, kEdgeCodeColumn);
  if (upper == 0) return PanelPlace::Foot;
  if (upper == 1 && lower == 0) return PanelPlace::Tack;
  if (upper == 1 && lower == 1) return PanelPlace::Luff;
  if (upper == 2 && lower == 1) return PanelPlace::Head;
  return PanelPlace::Gaff;
}

}  // namespace brivane
